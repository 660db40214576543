#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QIODevice;

/// A set of words that mean the same.
struct Synset {
    int id = 0;          ///< the number of the part of speech, then the eight digits of its place in the file
    QString pos;         ///< n, v, a, r, or s for an adjective that lies beside another
    QStringList lemmas;  ///< in lower case, with blanks, each once
};

/// The sets in one data file of the database. `part` is the number of its part of speech. Lines of the
/// licence and lines that can't be read are left out.
QList<Synset> readSynsets(QIODevice& file, int part);
