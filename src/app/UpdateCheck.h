#pragma once

#include <QByteArray>
#include <QUrl>

/// Whether the cloud services speak the protocol versions of this client.
namespace updatecheck {

/// Reads the body of the version endpoint. A missing number counts as 0, so anything unreadable doesn't
/// match.
bool versionsMatch(const QByteArray& body);

/// Asks the version endpoint and waits for its answer in a local event loop, without a bound. An endpoint
/// that can't be reached doesn't match.
bool serverMatches(const QUrl& versionUrl);

/// Asks the user to update when the cloud's versions don't match; opens the download page and gives true when
/// the user wants to. Gives false at once in a build without a cloud.
bool userLeavesToUpdate();

}  // namespace updatecheck
