#include "export/ScriptFile.h"

#include <QDateTime>
#include <QJsonDocument>

namespace {

constexpr int sliceLength = 2000;

// In a script, a line separator ends a line even inside a text, and "</script>" ends the script. In JSON all
// of them can only stand in texts.
QByteArray scriptSafe(QByteArray json) {
    json.replace('<', "\\u003c");
    json.replace("\u2028", "\\u2028");
    json.replace("\u2029", "\\u2029");
    return json;
}

// A backslash that would begin an escape which reaches further than the next letter, or is none.
bool breaksOut(const QString& text, int backslash) {
    const QChar next = backslash + 1 < text.size() ? text.at(backslash + 1) : QChar();
    return next.isNull() || next < QLatin1Char(' ') || QStringLiteral("\"\\xu").contains(next) ||
           next.unicode() == 0x2028 || next.unicode() == 0x2029 || next == QLatin1Char('<');
}

QByteArray quoted(const QString& text) {
    QString out;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('"'))
            out += QLatin1String("\\\"");
        else if (c == QLatin1Char('\\') && breaksOut(text, i))
            out += QLatin1String("\\\\");
        else if (c < QLatin1Char(' '))
            out += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            out += c;
    }
    return '"' + scriptSafe(out.toUtf8()) + '"';
}

}  // namespace

bool ScriptFile::open() {
    return m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text);
}

bool ScriptFile::close() {
    m_written = m_file.flush() && m_written;
    m_file.close();
    return m_written && m_file.error() == QFileDevice::NoError;
}

void ScriptFile::write(const QByteArray& bytes) {
    for (int at = 0; at < bytes.size() && m_written; at += sliceLength) {
        const int length = qMin(sliceLength, bytes.size() - at);
        m_written = m_file.write(bytes.constData() + at, length) == length;
    }
}

void ScriptFile::begin(const char* name) {
    write(QByteArrayLiteral("var ") + name + " = ");
}

void ScriptFile::number(const char* name, qint64 value) {
    begin(name);
    write(QByteArray::number(value) + "\n\n");
}

void ScriptFile::array(const char* name, const QJsonArray& value) {
    begin(name);
    write(scriptSafe(QJsonDocument(value).toJson()) + '\n');
}

void ScriptFile::timestamp(const char* name) {
    begin(name);
    write(QByteArray::number(QDateTime::currentMSecsSinceEpoch()) + ";\n\n");
}

void ScriptFile::text(const char* name, const QString& value) {
    begin(name);
    write(quoted(value) + ";\n\n");
}

void ScriptFile::beginArray(const char* name) {
    begin(name);
    write("[");
    m_firstElement = true;
}

void ScriptFile::element(const QJsonObject& element) {
    const QByteArray json = QJsonDocument(element).toJson();
    this->element(json.left(json.size() - 1));
}

void ScriptFile::element(const QByteArray& json) {
    write((m_firstElement ? "\n" : ",\n") + scriptSafe(json));
    m_firstElement = false;
}

void ScriptFile::endArray() {
    write(m_firstElement ? "]\n\n" : "\n]\n\n");
}
