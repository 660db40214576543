#include "WordNetData.h"

#include <QIODevice>
#include <QRegularExpression>

namespace {

constexpr int firstWord = 4;
constexpr int idsOfPart = 100000000;

// An adjective may end in the place where it stands: "galore(ip)".
QString lemmaOf(QString word) {
    static const QRegularExpression marker(QStringLiteral("\\((a|p|ip)\\)$"));
    return word.remove(marker).replace(QLatin1Char('_'), QLatin1Char(' ')).toLower();
}

// "offset file type count word number word number ... | gloss", the count in hexadecimal.
bool readSynset(const QString& line, int part, Synset& synset) {
    const QStringList fields =
        line.section(QLatin1Char('|'), 0, 0).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    bool isOffset = false, isCount = false;
    const int offset = fields.value(0).toInt(&isOffset);
    const int count = fields.value(3).toInt(&isCount, 16);
    if (!isOffset || !isCount || fields.size() < firstWord + 2 * count)
        return false;
    synset.id = part * idsOfPart + offset;
    synset.pos = fields.at(2);
    for (int i = 0; i < count; ++i)
        synset.lemmas.append(lemmaOf(fields.at(firstWord + 2 * i)));
    synset.lemmas.removeDuplicates();
    return true;
}

}  // namespace

QList<Synset> readSynsets(QIODevice& file, int part) {
    QList<Synset> synsets;
    while (!file.atEnd()) {
        const QString line = QString::fromLatin1(file.readLine());
        Synset synset;
        if (!line.startsWith(QLatin1Char(' ')) && readSynset(line, part, synset))
            synsets.append(synset);
    }
    return synsets;
}
