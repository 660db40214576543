#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

/// Whether the cloud services speak the protocol versions of this client.
namespace updatecheck {

/// Reads the body of the version endpoint. A missing number counts as 0, so anything unreadable doesn't
/// match.
bool versionsMatch(const QByteArray& body);

struct Answer {
    bool matches = false;
    QString error;  ///< why there is no answer, as a sentence; empty when there is one
};
/// Asks the version endpoint and waits for its answer in a local event loop, at most as long as nothing is
/// heard of it for 15 s.
Answer ask(const QUrl& versionUrl);

/// Asks the user to update when the cloud's versions don't match; opens the download page and gives true when
/// the user wants to. Gives false at once when no cloud is known.
bool userLeavesToUpdate();

}  // namespace updatecheck
