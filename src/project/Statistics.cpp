#include "project/Statistics.h"

#include <QJsonObject>

namespace statistics {
namespace {

namespace key {
const QString value = QStringLiteral("value");
const QString valueFactor = QStringLiteral("valueFactor");
const QString valueOccurrences = QStringLiteral("valueOccurrences");
const QString keyOccurrences = QStringLiteral("keyOccurrences");
const QString keyFactor = QStringLiteral("keyFactor");
const QString sourcesCount = QStringLiteral("sourcesCount");
const QString sourcesOccurrences = QStringLiteral("sourcesOccurrences");
const QString author = QStringLiteral("author");
const QString coverage = QStringLiteral("coverage");
const QString count = QStringLiteral("count");
const QString share = QStringLiteral("share");
const QString len = QStringLiteral("len");
const QString totalLen = QStringLiteral("totalLen");
const QString kernoId = QStringLiteral("kernoId");
const QString authors = QStringLiteral("authors");
}  // namespace key

const QStringList overviewNames{
    key::value,     key::valueFactor,  key::valueOccurrences,  key::keyOccurrences,
    key::keyFactor, key::sourcesCount, key::sourcesOccurrences};

double percentage(double part, double whole) {
    return whole == 0.0 ? 0.0 : part / whole * 100.0;
}

QVariantMap authorRow(const QJsonObject& object, int totalLength) {
    const double length = object.value(key::len).toDouble();
    return {{key::author, object.value(key::author).toVariant()},
            {key::coverage, percentage(length, totalLength)},
            {key::count, object.value(key::count).toVariant()},
            {key::share, percentage(length, object.value(key::totalLen).toDouble())}};
}

QVariantMap notDefinedRow(const QVariantMap& first, int missing, int sources, const QString& notDefined) {
    const double factor = static_cast<double>(missing) / sources;
    return {{key::value, notDefined},         {key::valueFactor, factor},
            {key::valueOccurrences, missing}, {key::keyOccurrences, first.value(key::keyOccurrences)},
            {key::keyFactor, factor},         {key::sourcesCount, sources}};
}

// From here on `keyFactor` is a row's share among all rows. `keyOccurrences` counts one more in every row.
void shareAmongRows(QVariantList& list) {
    int total = 0;
    for (const QVariant& row : qAsConst(list))
        total += row.toMap().value(key::valueOccurrences).toInt();
    for (QVariant& entry : list) {
        QVariantMap row = entry.toMap();
        row[key::keyOccurrences] = row.value(key::keyOccurrences).toInt() + 1;
        row[key::keyFactor] = row.value(key::valueOccurrences).toDouble() / total;
        entry = row;
    }
}

}  // namespace

QVariantList rows(const QJsonArray& answer, const QStringList& names) {
    QVariantList list;
    list.reserve(answer.size());
    for (const QJsonValue& element : answer) {
        const QJsonObject object = element.toObject();
        QVariantMap row;
        for (const QString& name : names)
            row.insert(name, object.value(name).toVariant());
        list.append(row);
    }
    return list;
}

QVariantList metadataOverview(const QJsonArray& answer, const QString& notDefined) {
    QVariantList list = rows(answer, overviewNames);
    if (list.isEmpty())
        return list;
    const QVariantMap first = list.first().toMap();
    const int sources = first.value(key::sourcesCount).toInt();
    const int withKey = first.value(key::sourcesOccurrences).toInt();
    if (sources == withKey)
        return list;
    list.append(notDefinedRow(first, sources - withKey, sources, notDefined));
    shareAmongRows(list);
    return list;
}

QVariantList metadataOverviewWithoutValues(int sourcesCount, const QString& notDefined) {
    return {QVariantMap{{key::value, notDefined},
                        {key::valueFactor, 1},
                        {key::valueOccurrences, sourcesCount},
                        {key::keyOccurrences, sourcesCount},
                        {key::keyFactor, 1},
                        {key::sourcesCount, sourcesCount},
                        {key::sourcesOccurrences, sourcesCount}}};
}

QVariantList metadataOverviewForKernos(const QJsonArray& answer) {
    QVariantList list;
    int sum = 0;
    int sources = 0;
    const auto append = [&list](const QVariant& value, int occurrences, double factor) {
        list.append(QVariantMap{{key::keyFactor, factor},
                                {key::valueFactor, factor},
                                {key::value, value},
                                {key::valueOccurrences, occurrences}});
    };
    for (const QJsonValue& element : answer) {
        const QJsonObject object = element.toObject();
        const int occurrences = object.value(key::valueOccurrences).toInt();
        sources = object.value(key::sourcesOccurrences).toInt();
        append(object.value(key::value).toVariant(), occurrences, static_cast<double>(occurrences) / sources);
        sum += occurrences;
    }
    const int missing = sources - sum;
    if (missing >= 1)
        append(QStringLiteral("Not Defined"), missing, static_cast<double>(missing) / sources);
    return list;
}

QVariantList coverageByAuthor(const QJsonArray& answer, int totalLength) {
    QVariantList list;
    for (const QJsonValue& element : answer)
        list.append(authorRow(element.toObject(), totalLength));
    return list;
}

QVariantList coverageByKerno(const QJsonArray& answer, int totalLength) {
    QVariantList list;
    for (const QJsonValue& element : answer) {
        const QJsonObject object = element.toObject();
        list.append(QVariantMap{{key::kernoId, object.value(key::kernoId).toVariant()},
                                {key::coverage, percentage(object.value(key::len).toDouble(), totalLength)},
                                {key::count, object.value(key::count).toVariant()}});
    }
    return list;
}

QVariantList coverageByKernoAndAuthor(const QJsonArray& answer, int totalLength) {
    QVariantList list;
    QVariantList authors;
    QVariant kernoId;
    const auto closeEntry = [&] {
        if (!authors.isEmpty())
            list.append(QVariantMap{{key::kernoId, kernoId}, {key::authors, authors}});
        authors.clear();
    };
    for (const QJsonValue& element : answer) {
        const QJsonObject object = element.toObject();
        const QVariant next = object.value(key::kernoId).toVariant();
        if (next != kernoId)
            closeEntry();
        kernoId = next;
        authors.append(authorRow(object, totalLength));
    }
    closeEntry();
    return list;
}

QVariantList metadataForReport(const QJsonArray& answer) {
    const QString id = QStringLiteral("id");
    QVariantList list =
        rows(answer, {QStringLiteral("key"), key::value, QStringLiteral("keyId"), QStringLiteral("valueId"),
                      QStringLiteral("sourceId"), key::author, QStringLiteral("timestamp")});
    for (int i = 0; i < list.size(); ++i) {
        QVariantMap row = list.at(i).toMap();
        row.insert(QStringLiteral("metadataId"), answer.at(i).toObject().value(id).toVariant());
        list[i] = row;
    }
    return list;
}

}  // namespace statistics
