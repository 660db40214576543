#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

namespace csv {

/// One CSV file while it is written: under another name until `commit`, so that a failure leaves what was
/// there before, and no half file. UTF-8. Each field is followed by a comma.
class File {
public:
    /// `name` is without its suffix.
    File(const QString& folder, const QString& name);

    QString path() const { return m_file.fileName(); }

    /// False when it can't be opened; `openError` says why.
    bool open();
    QString openError() const { return m_file.errorString(); }
    void field(int number);
    /// A field that needs no quotes.
    void field(const QString& bare);
    void quoted(const QString& text);
    /// `length` characters of the text from `start`.
    void quoted(const QString& text, int start, int length);
    /// What is a part of a line already.
    void raw(const QByteArray& utf8);
    void endLine();
    /// Empty when every byte is in its place; otherwise why not, and nothing has changed.
    QString commit();

private:
    QSaveFile m_file;
    QByteArray m_waiting;
};

}  // namespace csv
