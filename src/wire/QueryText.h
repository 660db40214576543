#pragma once

#include "wire/Operations.h"

#include <QString>
#include <QStringList>

/// Builds the query text of requests. The forms are quoted whole in QueryText.cpp; nothing else builds them.
namespace wire {

/// `name:5`
QString argument(const QString& name, qint64 number);

/// `name:"text"` with backslash, double quote and line feed escaped.
QString argument(const QString& name, const QString& text);

/// `name:"text"` with the text as it stands: for fixed templates, which don't escape.
QString rawArgument(const QString& name, const QString& text);

/// The three escapes of a string argument, in their order.
QString escaped(QString text);

/// `{operation{fields}}`, or `{operation(arguments){fields}}` when there are arguments.
QString read(const QString& operation, const QStringList& arguments, const QStringList& fields);

/// `{operation(arguments){fields}}` with arguments and fields joined as the caller wants them.
QString read(const QString& operation, const QString& arguments, const QString& fields);

/// `{wordMaxId(next: true)}`; with `next` the service reserves the id that it answers.
QString maxId(const QString& word, bool next);

/// `{wordMaxId(next: true count: 5)}`: reserves as many and answers the last.
QString reserveIds(const QString& word, int count);

/// `mutation{operation(arguments){fields}}`
QString mutation(const QString& operation, const QStringList& arguments, const QStringList& fields);

/// What the answer to a batch of passages consists of.
QStringList placeFields();

/// `mutation{operation(words:[{arguments},{arguments}]){sourceIds questionIds}}`; each entry of `records`
/// is one record's argument list.
QString batchMutation(Record record, Operation operation, const QList<QStringList>& records,
                      const QStringList& fields = placeFields());

/// Opens the project of that name at the service.
QString openProject(const QString& name, const QString& uuid);

/// Closes the open project.
QString closeProject();

/// Reads of fixed form.
QString kernoHasChildren(int parentKernoId);
QString kernoIdsForKernosWithOverlap();
QString maxHighlightsCount();
QString highlightOverlapCount(int kernoId1, int kernoId2);
QString kernoOverlapCount(int kernoId);
QString answersWithQuestion(int sourceId);
QString answersWithQuestion(int sourceId, int questionId);
QString highlightsCoverageByKerno();
QString highlightsCoverageByAuthor();
QString highlightsCoverageByKernoAndAuthor();
QString highlightsOverviewPerSourceForKerno(int kernoId);
QString sourceMetadataListForReport(int sourceId);
QString sourceMetadataOverviewForKeyId(int keyId);
/// Each id is followed by one blank inside the brackets: `[3 7 ]`.
QString sourceMetadataOverviewForKeyAndKernosId(int keyId, const QList<int>& kernoIds);
QString sourceCodedLengthById();
QString quoteCountsInKernos();

}  // namespace wire
