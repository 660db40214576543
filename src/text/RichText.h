#pragma once

#include "records/RichTextFragment.h"

/// Toggles a style of the characters [start, end) in one step of the document's undo history: when all of
/// them have the style it is taken away, otherwise all get it. An empty range counts as having it.
void toggleBold(QTextDocument* document, int start, int end);
void toggleItalic(QTextDocument* document, int start, int end);
void toggleUnderline(QTextDocument* document, int start, int end);
