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
    raw(QByteArray::number(number) + ',');
}

void File::field(const QString& bare) {
    raw(bare.toUtf8() + ',');
}

void File::quoted(const QString& text) {
    field(csv::quoted(text));
}

void File::quoted(const QString& text, int start, int length) {
    field(csv::quoted(text, start, length));
}

void File::raw(const QByteArray& utf8) {
    m_waiting += utf8;
}

void File::endLine() {
    m_waiting += '\n';
    if (m_waiting.size() < blockSize)
        return;
    // A write that fails makes the commit fail.
    m_file.write(m_waiting);
    m_waiting.resize(0);
}

QString File::commit() {
    m_file.write(m_waiting);
    m_waiting.clear();
    return putInPlace(m_file);
}

}  // namespace csv
