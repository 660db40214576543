#pragma once

#include <QByteArray>
#include <QString>

/// Between the bytes of a frame and what they say.
namespace frametext {

/// The largest frame that is read.
constexpr int maxFrameBytes = 64 * 1024 * 1024;

struct Reading {
    bool ok = false;
    int messageId = 0;  ///< 0 when there was none that could be read
    QString text;       ///< the query
    QString fault;      ///< what is wrong with the frame, when it isn't ok
};

Reading read(const QByteArray& bytes);

/// A reply with its number, or a notification when `messageId` is 0. `payload` is a JSON object.
QByteArray write(int messageId, bool ok, const QByteArray& payload);

}  // namespace frametext
