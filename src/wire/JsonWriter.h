#pragma once

#include <QByteArray>
#include <QString>

/// Writes compact JSON straight into its UTF-8 bytes, so that an answer exists once and in one form only.
class JsonWriter {
public:
    JsonWriter& beginObject();
    JsonWriter& endObject();
    JsonWriter& beginArray();
    JsonWriter& endArray();
    JsonWriter& key(const QString& name);
    /// A key in its JSON form, with the colon.
    JsonWriter& key(const QByteArray& json);
    JsonWriter& value(const QString& text);
    JsonWriter& value(qint64 number);
    JsonWriter& value(double number);  ///< null for what JSON can't hold
    JsonWriter& value(bool truth);
    JsonWriter& null();
    /// A value that is JSON already.
    JsonWriter& raw(const QByteArray& json);

    const QByteArray& bytes() const { return m_bytes; }
    QByteArray take();

private:
    void separate();
    void append(const QString& text);

    QByteArray m_bytes;
    bool m_needsComma = false;
};
