#pragma once

#include <QVariantList>

class QSqlDatabase;

namespace Search {

/// The other words of all sets of synonyms that hold the word, which is compared as it is: a map with
/// "category" (the letter of the part of speech) and "synonym" for each. Empty when the database is not open.
QVariantList synonymsOf(const QString& word, const QSqlDatabase& database);

}  // namespace Search
