#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>

/// Reading the text of a file that is to become a source. What dialogs, drop areas and folders offer comes
/// from one list of kinds.
namespace textfile {

/// Reads a local file by the kind that its suffix tells, in any case: Word and RTF documents as rich text
/// fragments, PDF as trimmed text, anything else as text in UTF-8, with its line ends turned into line feeds.
/// Gives an empty text when the file can't be read or has none. Main thread; while a PDF is converted events
/// are handled, and `cancelled` is asked several times a second whether to give up.
QString read(const QUrl& file, const std::function<bool()>& cancelled = {});

/// The suffixes of the kinds, in lower case.
QStringList suffixes();

/// The name filter of the dialog that asks for one file, and of the one that asks for several.
QString singleFileFilter();
QString multipleFilesFilter();

/// The readable files of a folder that an import of the folder takes up, by name. PDF files are not among
/// them.
QList<QUrl> importableFiles(const QUrl& folder);

/// The title of a source made from the file: its name up to the last dot.
QString titleFor(const QUrl& file);

}  // namespace textfile
