#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// The two kinds of frame on the web socket. Every frame is one text message that holds one JSON object.
namespace wire {

/// What the client sends.
struct RequestFrame {
    QString auth;       ///< access token, empty for a local service
    int messageId = 0;  ///< 1 and up; 0 when the frame had none that could be read
    QString text;       ///< query or mutation

    /// Compact JSON.
    QString toText() const;
};

/// What the service sends: a reply, a notification, or both at once.
struct ResponseFrame {
    int messageId = 0;  ///< 0 for a notification about another client's change
    int status = 0;
    QJsonObject payload;

    QString toText() const;
};

/// How reading a frame went. A frame that fails still reads as an empty one.
enum class FrameError { None, InvalidJson, NotAnObject };

struct FrameReading {
    QJsonObject object;
    FrameError error = FrameError::None;
    QString message;  ///< the parser's words, for `InvalidJson`
};

/// Parses a frame's text into its object.
FrameReading readFrame(const QString& text);

RequestFrame requestFromJson(const QJsonObject& object);
ResponseFrame responseFromJson(const QJsonObject& object);

/// "i_%1" of the number.
QString messageIdText(int messageId);

/// Drops the first two characters and reads the rest as a decimal number; 0 when that fails.
int messageIdFromText(const QString& text);

}  // namespace wire
