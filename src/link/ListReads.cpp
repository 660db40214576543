#include "link/ListReads.h"

#include "link/DataHelper.h"
#include "records/Highlight.h"
#include "records/Memo.h"
#include "records/QuestionAnswer.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"

namespace reads {
namespace {

using wire::Operation;
using wire::Record;

QString kernoId(int id) {
    return wire::argument(QStringLiteral("kernoId"), id);
}

QString sourceId(int id) {
    return wire::argument(QStringLiteral("sourceId"), id);
}

QString questionId(int id) {
    return wire::argument(QStringLiteral("questionId"), id);
}

QStringList window(int source, int question, int offset, int length) {
    return {sourceId(source), questionId(question), wire::argument(QStringLiteral("sourceOffset"), offset),
            wire::argument(QStringLiteral("sourceLength"), length)};
}

QString oneField(wire::Record record, const QStringList& arguments, const QString& field) {
    return wire::read(wire::operationName(record, Operation::QueryList), arguments, {field});
}

QString ids(wire::Record record, const QStringList& arguments = {}) {
    return oneField(record, arguments, QStringLiteral("id"));
}

}  // namespace

QString highlightsOfKerno(int kerno) {
    return DataHelper::listText<Highlight>({kernoId(kerno)});
}

QString highlightsOfSource(int source) {
    return DataHelper::listText<Highlight>({sourceId(source)});
}

QString highlights(int source, int question) {
    return DataHelper::listText<Highlight>({sourceId(source), questionId(question)});
}

QString highlights(int source, int question, int kerno) {
    return DataHelper::listText<Highlight>({sourceId(source), questionId(question), kernoId(kerno)});
}

QString highlightPlaces(int source) {
    return wire::read(wire::operationName(Record::Highlight, Operation::QueryList),
                      source > 0 ? QStringList{sourceId(source)} : QStringList(),
                      {QStringLiteral("id"), QStringLiteral("kernoId"), QStringLiteral("sourceId"),
                       QStringLiteral("questionId"), QStringLiteral("start"), QStringLiteral("length")});
}

QString highlightsInWindow(int source, int question, int offset, int length) {
    return DataHelper::listText<Highlight>(window(source, question, offset, length),
                                           Operation::QueryListWithOffset);
}

QString highlightsOfKernos(int source, int question, const QString& kernoIds) {
    return wire::read(
        wire::name::highlightQueryListBySourceQuestionAndKernos,
        {sourceId(source), questionId(question), wire::rawArgument(QStringLiteral("kernoIds"), kernoIds)},
        Highlight::queryFields());
}

QString highlightIds() {
    return ids(Record::Highlight);
}

QString highlightIdsOfSource(int source) {
    return ids(Record::Highlight, {sourceId(source)});
}

QString highlightIdsOfKerno(int kerno) {
    return ids(Record::Highlight, {kernoId(kerno)});
}

QString highlightIdsOfKernoAndSource(int kerno, int source) {
    return ids(Record::Highlight, {kernoId(kerno), sourceId(source)});
}

QString highlightIdsOfQuestion(int question) {
    return ids(Record::Highlight, {questionId(question)});
}

QString highlightIdsOfQuestionAndSource(int question, int source) {
    return ids(Record::Highlight, {questionId(question), sourceId(source)});
}

QString memosOfSource(int source) {
    return DataHelper::listText<Memo>({sourceId(source)});
}

QString memos(int source, int question) {
    return DataHelper::listText<Memo>({sourceId(source), questionId(question)});
}

QString memosInWindow(int source, int question, int offset, int length) {
    return DataHelper::listText<Memo>(window(source, question, offset, length),
                                      Operation::QueryListWithOffset);
}

QString answersOfSource(int source) {
    return DataHelper::listText<QuestionAnswer>({sourceId(source)});
}

QString sourceIdsOfAnswers() {
    return oneField(Record::QuestionAnswer, {}, QStringLiteral("sourceId"));
}

QString kernoIdsOfParent(int parentKernoId) {
    return ids(Record::Kerno, {wire::argument(QStringLiteral("parentKernoId"), parentKernoId)});
}

QString kernoIds() {
    return ids(Record::Kerno);
}

QString parentKernoIds() {
    return oneField(Record::Kerno, {}, QStringLiteral("parentKernoId"));
}

QString questionIds() {
    return ids(Record::Question);
}

QString sourceIds() {
    return ids(Record::Source);
}

QString metadataKeysByName(const QString& name) {
    return DataHelper::listText<SourceMetadataKey>({wire::argument(QStringLiteral("name"), name)});
}

QString metadataValuesOfKey(int keyId) {
    return DataHelper::listText<SourceMetadataValue>({wire::argument(QStringLiteral("keyId"), keyId)});
}

}  // namespace reads
