#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

/// A script of statements `var NAME = VALUE`, which a web page reads its data from. It is one valid script
/// whatever stands in the texts, also when it is put into a page.
class ScriptFile {
public:
    explicit ScriptFile(const QString& path) : m_file(path) {}

    /// Begins the file anew.
    bool open();
    /// Whether everything has been written.
    bool close();

    void number(const char* name, qint64 value);
    void array(const char* name, const QJsonArray& value);
    /// The time, in milliseconds since the epoch.
    void timestamp(const char* name);
    /// A text in double quotes. A backslash stays as it stands unless that would break the script.
    void text(const char* name, const QString& value);

    // An array of many elements, one by one.
    void beginArray(const char* name);
    void element(const QJsonObject& element);
    /// One that is JSON already, indented by four blanks a level.
    void element(const QByteArray& json);
    void endArray();

private:
    void begin(const char* name);
    void write(const QByteArray& bytes);

    QFile m_file;
    bool m_written = true;
    bool m_firstElement = true;
};
