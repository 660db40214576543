#include "search/SearchTerm.h"

#include <array>

namespace Search {

namespace {

constexpr std::array<const char*, 7> endings{"e", "es", "ing", "s", "ed", "edly", "ly"};
constexpr int shortestStemmed = 4;

bool hasBlank(const QString& term) {
    static const QRegularExpression blank(QStringLiteral("\\s"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    return blank.match(term).hasMatch();
}

QString stemOf(const QString& term) {
    const QString word = term.toLower();
    for (const char* const ending : endings) {
        const QLatin1String end(ending);
        if (word.size() > end.size() && word.endsWith(end))
            return word.chopped(end.size());
    }
    return word;
}

}  // namespace

QStringList alternatives(const QString& term, bool alternativeEndings) {
    if (!alternativeEndings || term.size() < shortestStemmed || hasBlank(term))
        return {QRegularExpression::escape(term)};
    const QString stem = stemOf(term);
    QStringList list;
    if (stem == term)
        list.append(stem);
    for (const char* const ending : endings)
        list.append(stem + QLatin1String(ending));
    return list;
}

QRegularExpression hitExpression(const QString& term, const QStringList& synonyms, Options options) {
    QStringList list = alternatives(term, options.testFlag(Option::AlternativeEndings));
    for (const QString& synonym : synonyms)
        list.append(QRegularExpression::escape(synonym));
    const QString boundary = options.testFlag(Option::WholeWords) ? QStringLiteral("\\b") : QString();
    QRegularExpression expression(
        QLatin1Char('(') + boundary + list.join(QLatin1Char('|')) + boundary + QLatin1Char(')'),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    expression.optimize();
    return expression;
}

}  // namespace Search
