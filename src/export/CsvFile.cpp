#include "export/CsvFile.h"

#include "export/CsvText.h"
#include "project/WholeFile.h"

#include <QDir>

namespace csv {

namespace {

constexpr int blockSize = 256 * 1024;  // bytes

}  // namespace

File::File(const QString& folder, const QString& name)
    : m_file(QStringLiteral("%1%2%3%4").arg(folder, QDir::separator(), name, QStringLiteral(".csv"))) {}

bool File::open() {
    return m_file.open(QIODevice::WriteOnly | QIODevice::Text);
}

void File::field(int number) {
    m_waiting += QByteArray::number(number);
    m_waiting += ',';
}

void File::field(const QString& bare) {
    m_waiting += bare.toUtf8();
    m_waiting += ',';
}

void File::quoted(const QString& text) {
    quoted(text, 0, text.size());
}

void File::quoted(const QString& text, int start, int length) {
    appendQuoted(m_waiting, text, start, length);
    m_waiting += ',';
}

void File::raw(const QByteArray& utf8) {
    m_waiting += utf8;
}

void File::endLine() {
    m_waiting += '\n';
    if (m_waiting.size() < blockSize)
        return;
    writeWhole(m_file, m_waiting);
    // Keeps its room.
    m_waiting.resize(0);
}

QString File::commit() {
    writeWhole(m_file, m_waiting);
    m_waiting.clear();
    return putInPlace(m_file);
}

}  // namespace csv
