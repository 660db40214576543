#include "search/Synonyms.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariantMap>

namespace Search {

QVariantList synonymsOf(const QString& word, const QSqlDatabase& database) {
    QVariantList synonyms;
    if (!database.isOpen())
        return synonyms;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT DISTINCT pos, lemma FROM words, senses, synsets"
                                 "   WHERE words.wordid = senses.wordid"
                                 "     AND lemma != :lemma1"
                                 "     AND senses.synsetid = synsets.synsetid"
                                 "     AND synsets.synsetid IN("
                                 "       SELECT synsets.synsetid"
                                 "         FROM words, senses, synsets"
                                 "         WHERE words.wordid = senses.wordid"
                                 "           AND senses.synsetid = synsets.synsetid"
                                 "           AND lemma = :lemma2"
                                 "     );"));
    query.bindValue(QStringLiteral(":lemma1"), word);
    query.bindValue(QStringLiteral(":lemma2"), word);
    query.exec();
    while (query.next())
        synonyms.append(QVariantMap{{QStringLiteral("category"), query.value(0)},
                                    {QStringLiteral("synonym"), query.value(1)}});
    return synonyms;
}

}  // namespace Search
