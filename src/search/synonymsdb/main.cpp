// make_synonyms <folder of the lexical database> <file to write>: the words, their senses and the sets of
// synonyms as an SQLite file.

#include "WordNetData.h"

#include <QCoreApplication>
#include <QFile>
#include <QMap>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <cstdio>

namespace {

bool fail(const QString& reason) {
    std::fprintf(stderr, "make_synonyms: %s\n", qPrintable(reason));
    return false;
}

bool readAll(const QString& folder, QList<Synset>& synsets) {
    int part = 0;
    for (const char* const name : {"noun", "verb", "adj", "adv"}) {
        QFile file(folder + QStringLiteral("/data.") + QLatin1String(name));
        if (!file.open(QIODevice::ReadOnly))
            return fail(file.fileName() + QStringLiteral(": ") + file.errorString());
        const QList<Synset> found = readSynsets(file, ++part);
        if (found.isEmpty())
            return fail(file.fileName() + QStringLiteral(" holds no sets of synonyms"));
        synsets += found;
    }
    return true;
}

bool run(QSqlQuery& query, const char* statement) {
    return query.exec(QLatin1String(statement)) || fail(query.lastError().text());
}

bool insert(QSqlQuery& query, const QVariant& first, const QVariant& second) {
    query.bindValue(0, first);
    query.bindValue(1, second);
    return query.exec() || fail(query.lastError().text());
}

bool fill(QSqlQuery& query, const QList<Synset>& synsets) {
    QMap<QString, int> words;
    for (const Synset& synset : synsets) {
        for (const QString& lemma : synset.lemmas)
            words.insert(lemma, 0);
    }
    int wordId = 0;
    query.prepare(QStringLiteral("INSERT INTO words VALUES(?, ?)"));
    for (auto word = words.begin(); word != words.end(); ++word) {
        *word = ++wordId;
        if (!insert(query, wordId, word.key()))
            return false;
    }
    query.prepare(QStringLiteral("INSERT INTO synsets VALUES(?, ?)"));
    for (const Synset& synset : synsets) {
        if (!insert(query, synset.id, synset.pos))
            return false;
    }
    query.prepare(QStringLiteral("INSERT INTO senses VALUES(?, ?)"));
    for (const Synset& synset : synsets) {
        for (const QString& lemma : synset.lemmas) {
            if (!insert(query, words.value(lemma), synset.id))
                return false;
        }
    }
    return true;
}

bool write(const QString& path, const QList<Synset>& synsets) {
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(path);
    if (!database.open())
        return fail(database.lastError().text());
    QSqlQuery query(database);
    return run(query, "PRAGMA journal_mode=OFF") && run(query, "PRAGMA synchronous=OFF") &&
           run(query, "BEGIN") &&
           run(query, "CREATE TABLE words(wordid INTEGER PRIMARY KEY, lemma TEXT NOT NULL)") &&
           run(query, "CREATE TABLE synsets(synsetid INTEGER PRIMARY KEY, pos TEXT NOT NULL)") &&
           run(query, "CREATE TABLE senses(wordid INTEGER NOT NULL, synsetid INTEGER NOT NULL, "
                      "PRIMARY KEY(synsetid, wordid)) WITHOUT ROWID") &&
           fill(query, synsets) && run(query, "CREATE UNIQUE INDEX words_by_lemma ON words(lemma)") &&
           run(query, "CREATE INDEX senses_by_word ON senses(wordid, synsetid)") && run(query, "COMMIT") &&
           run(query, "ANALYZE");
}

// Under another name until it is whole, so that an interrupted build leaves no half of it.
bool make(const QString& folder, const QString& path) {
    const QString draft = path + QStringLiteral(".new");
    QFile::remove(draft);
    QList<Synset> synsets;
    if (!readAll(folder, synsets) || !write(draft, synsets))
        return false;
    QFile::remove(path);
    return QFile::rename(draft, path) || fail(path + QStringLiteral(" can't be written"));
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return fail(QStringLiteral("give the folder of the database and the file to write")), 2;
    return make(arguments.at(1), arguments.at(2)) ? 0 : 1;
}
