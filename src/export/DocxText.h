#pragma once

#include "export/MarkedRuns.h"

#include <QByteArray>
#include <QString>

/// Texts of people in WordprocessingML.
namespace docx {

/// As UTF-8, for an element or an attribute. Characters that XML 1.0 forbids, and halves of characters, are
/// left out.
QByteArray escaped(const QString& text);

/// A `w:t` element that keeps its blanks.
void appendText(QByteArray& xml, const QString& text);
/// One run in the look of `look`; its start and length don't matter.
void appendRun(QByteArray& xml, const QString& text, const MarkedRun& look);
/// The runs of a text with line ends.
void appendRuns(QByteArray& xml, const QString& text, const MarkedRun& look);

}  // namespace docx
