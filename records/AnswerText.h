#pragma once

#include "records/HtmlDocument.h"

#include <QString>

/// The text of an answer in all its forms: what is stored, what is shown, and the plain text on which positions
/// count. Made once for a stored text and then shared by all copies of the answer.
struct AnswerText {
    QString stored;      ///< HTML, or a plain text inside the pre-wrap body
    bool isHtml = false;   ///< written as a document of its own, by the web client
    HtmlDocument document;
    QString plain;
    QString serialized;

    /// Classifies and parses a text. A text that can't be parsed keeps its stored form and has no plain text.
    static AnswerText prepare(const QString& text);

    /// The part [start, start + length) of another text, counted in its plain text.
    static AnswerText part(const AnswerText& whole, int start, int length);
};

/// The clean-up of a text that the service delivers, before positions are counted.
QString normalizedFromService(QString text);

/// The clean-up of a text that becomes an answer: every import and edit passes through it.
QString normalizedForStorage(QString text);
