#pragma once

#include <QString>

/// The text of an RTF file as a rich text fragment; empty when the file can't be read as RTF. Of a document
/// that breaks off, the part before is given.
QString rtfToRichText(const QString& path);
