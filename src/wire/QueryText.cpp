#include "wire/QueryText.h"

namespace wire {
namespace {

// Built by concatenation where a value may itself hold "%1": QString::arg would fill that place too.
QString block(const QString& operation, const QString& arguments, const QString& fields) {
    QString text;
    text.reserve(operation.size() + arguments.size() + fields.size() + 4);
    text += operation;
    text += QLatin1Char('(');
    text += arguments;
    text += QLatin1String("){");
    text += fields;
    text += QLatin1Char('}');
    return text;
}

}  // namespace

QString argument(const QString& name, qint64 number) {
    return name + QLatin1Char(':') + QString::number(number);
}

QString argument(const QString& name, const QString& text) {
    return rawArgument(name, escaped(text));
}

QString rawArgument(const QString& name, const QString& text) {
    return name + QLatin1String(":\"") + text + QLatin1Char('"');
}

QString escaped(QString text) {
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return text;
}

QString read(const QString& operation, const QStringList& arguments, const QStringList& fields) {
    const QLatin1Char blank(' ');
    if (arguments.isEmpty())
        return QLatin1Char('{') + operation + QLatin1Char('{') + fields.join(blank) + QLatin1String("}}");
    return read(operation, arguments.join(blank), fields.join(blank));
}

QString read(const QString& operation, const QString& arguments, const QString& fields) {
    return QLatin1Char('{') + block(operation, arguments, fields) + QLatin1Char('}');
}

QString maxId(const QString& word, bool next) {
    return QStringLiteral("{%1(%2)}")
        .arg(word + suffix(Operation::MaxId),
             next ? QStringLiteral("next: true") : QStringLiteral("next: false"));
}

QString reserveIds(const QString& word, int count) {
    return QStringLiteral("{%1(next: true %2: %3)}")
        .arg(word + suffix(Operation::MaxId), name::count, QString::number(count));
}

QString mutation(const QString& operation, const QStringList& arguments, const QStringList& fields) {
    const QLatin1Char blank(' ');
    return QLatin1String("mutation{") + block(operation, arguments.join(blank), fields.join(blank)) +
           QLatin1Char('}');
}

QStringList placeFields() {
    return {QStringLiteral("sourceIds"), QStringLiteral("questionIds")};
}

QString batchMutation(Record record, Operation operation, const QList<QStringList>& records,
                      const QStringList& fields) {
    QString list = batchArgument(record) + QLatin1String(":[");
    for (int i = 0; i < records.size(); ++i) {
        if (i > 0)
            list += QLatin1Char(',');
        list += QLatin1Char('{') + records[i].join(QLatin1Char(' ')) + QLatin1Char('}');
    }
    list += QLatin1Char(']');
    return QLatin1String("mutation{") +
           block(operationName(record, operation), list, fields.join(QLatin1Char(' '))) + QLatin1Char('}');
}

QString openProject(const QString& name, const QString& uuid) {
    return QLatin1String("mutation{dbOpen(name:\"") + escaped(name) + QLatin1String("\", uuid:\"") +
           escaped(uuid) + QLatin1String("\"){name, uuid, status, access}}");
}

QString closeProject() {
    return QStringLiteral("mutation{dbClose{name, uuid, status}}");
}

QString kernoHasChildren(int parentKernoId) {
    return QStringLiteral("{kernoHasChildren(parentKernoId: %1)}").arg(parentKernoId);
}

QString kernoIdsForKernosWithOverlap() {
    return QStringLiteral("{kernoIdsForKernosWithOverlap}");
}

QString maxHighlightsCount() {
    return QStringLiteral("{maxHighlightsCount}");
}

QString highlightOverlapCount(int kernoId1, int kernoId2) {
    return QStringLiteral("{highlightOverlapCount(kernoId1: %1 kernoId2: %2)}").arg(kernoId1).arg(kernoId2);
}

QString kernoOverlapCount(int kernoId) {
    return QStringLiteral("{kernoOverlapCount(id: %1)}").arg(kernoId);
}

QString answersWithQuestion(int sourceId) {
    return QStringLiteral("{questionAnswerWithQuestionQueryList(sourceId:%1)"
                          "{id questionId sourceId question author timestamp answer}}")
        .arg(sourceId);
}

QString answersWithQuestion(int sourceId, int questionId) {
    return QStringLiteral("{questionAnswerWithQuestionQueryList(sourceId:%1, questionId:%2)"
                          "{id questionId sourceId question author timestamp answer}}")
        .arg(sourceId)
        .arg(questionId);
}

QString highlightsCoverageByKerno() {
    return QStringLiteral("{highlightsCoverageByKerno{kernoId len count}}");
}

QString highlightsCoverageByAuthor() {
    return QStringLiteral("{highlightsCoverageByAuthor{author len totalLen count}}");
}

QString highlightsCoverageByKernoAndAuthor() {
    return QStringLiteral("{highlightsCoverageByKernoAndAuthor{kernoId author len totalLen count}}");
}

QString highlightsOverviewPerSourceForKerno(int kernoId) {
    return QStringLiteral("{highlightsOverviewPerSourceForKerno(id: %1)"
                          "{kernoHighlights sourceHighlights sourceTitle}}")
        .arg(kernoId);
}

QString sourceMetadataListForReport(int sourceId) {
    return QStringLiteral("{sourceMetadataListForReport(sourceId: %1)"
                          "{id key value keyId valueId sourceId author timestamp}}")
        .arg(sourceId);
}

QString sourceMetadataOverviewForKeyId(int keyId) {
    return QStringLiteral("{sourceMetadataOverviewForKeyId(keyId: %1){value valueFactor valueOccurrences "
                          "keyOccurrences keyFactor sourcesCount sourcesOccurrences}}")
        .arg(keyId);
}

QString sourceMetadataOverviewForKeyAndKernosId(int keyId, const QList<int>& kernoIds) {
    QString ids(QLatin1Char('['));
    for (int id : kernoIds)
        ids += QString::number(id) + QLatin1Char(' ');
    ids += QLatin1Char(']');
    return QStringLiteral("{sourceMetadataOverviewForKeyAndKernosId(keyId: %1, kernoIds: %2)"
                          "{value valueOccurrences sourcesOccurrences}}")
        .arg(QString::number(keyId), ids);
}

QString sourceCodedLengthById() {
    return QStringLiteral("{sourceCodedLengthById{id coded_length}}");
}

QString quoteCountsInKernos() {
    return QStringLiteral("{quoteCountsInKernos%1{key value subvalue}}").arg(suffix(Operation::QueryList));
}

}  // namespace wire
