#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

/// Reading the text of a file that is to become a source.
namespace textfile {

/// What a reading gave. The text of a file that can't be opened is empty, as that of an empty file.
struct Reading {
    QString text;
    QString
        refusal;  ///< a sentence for the user when the file's kind isn't supported; the text is then empty
};

/// Reads a local file. The bytes of a text file are decoded as UTF-8, with its line ends turned into line
/// feeds. A file of a kind that isn't supported is not opened.
Reading read(const QUrl& file);

/// The patterns of the files that can be imported, for file dialogs; and of those that an import of a whole
/// folder takes up.
QStringList dialogPatterns();
QStringList folderPatterns();

/// The readable files of a folder that an import of the folder takes up, by name.
QList<QUrl> importableFiles(const QUrl& folder);

/// The title of a source made from the file: its name up to the last dot.
QString titleFor(const QUrl& file);

}  // namespace textfile
