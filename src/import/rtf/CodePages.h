#pragma once

class QTextCodec;

namespace RtfReader {

constexpr int westernCodePage = 1252;

/// The code page of a font's `\fcharset`; 0 when it leaves it to the document.
int codePageOfCharset(int charset);

/// The codec of a Windows, DOS or Macintosh code page; that of the western one for an unknown page. Never
/// null.
const QTextCodec* codecOfPage(int codePage);

}  // namespace RtfReader
