#pragma once

#include "export/MarkedText.h"

#include <QByteArray>
#include <QString>

/// Texts of people in WordprocessingML.
namespace docx {

/// As UTF-8, for an element or an attribute. Characters that XML 1.0 forbids, and halves of characters, are
/// left out.
QByteArray escaped(const QString& text);

/// A `w:t` element that keeps its blanks.
void appendText(QByteArray& xml, const QString& text);
/// One run with its `MarkedText::Mark`s.
void appendRun(QByteArray& xml, const QString& text, quint8 marks);
/// The runs of a text with line ends.
void appendRuns(QByteArray& xml, const QString& text, quint8 marks);

}  // namespace docx
