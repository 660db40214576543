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

/// A frame on its way out, in the parts that it is sent as. The payload may be long and is shared by all who
/// get it.
struct Frame {
    QByteArray head;
    QByteArray payload;

    /// What stands after the payload.
    static constexpr char tail[] = "}";
    qint64 size() const { return qint64(head.size()) + payload.size() + 1; }
};

/// A reply with its number, or a notification when `messageId` is 0. `payload` is a JSON object.
Frame write(int messageId, bool ok, const QByteArray& payload);

}  // namespace frametext
