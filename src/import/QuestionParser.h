#pragma once

#include <QVariantList>

/// Cuts a text into question and answer pairs: a list of maps with the texts "question" and "answer",
/// trimmed. The markers are looked for as they stand, case included. An empty answer is kept; a pair with an
/// empty question, and a last question without an answer marker, are dropped. Without a text, or when a
/// marker is empty or not found, the list is empty.
///
/// With `wholeText` the markers are ignored: the one pair has the text, unchanged, as its answer, and its
/// first 100 characters as its question, for a preview.
QVariantList parseQuestions(const QString& text, const QString& questionMarker, const QString& answerMarker,
                            bool wholeText);
