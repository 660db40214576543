#pragma once

#include <QFlags>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace Search {

enum class Option { WholeWords = 1, CodedTextOnly = 2, AlternativeEndings = 4 };
Q_DECLARE_FLAGS(Options, Option)
Q_DECLARE_OPERATORS_FOR_FLAGS(Options)

/// What a term stands for, each item a regular expression: the escaped term, or its stem with every ending.
/// Only a single word of four characters or more has endings, and those are not escaped.
QStringList alternatives(const QString& term, bool alternativeEndings);

/// The expression of a search, in one capture; without regard to case. The boundaries of whole words lie
/// before the first alternative and after the last one, and so bind no others. Invalid when a term that
/// isn't escaped makes it so.
QRegularExpression hitExpression(const QString& term, const QStringList& synonyms, Options options);

}  // namespace Search
