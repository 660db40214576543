#pragma once

#include <QList>
#include <QString>

/// The texts of the filtered list reads, whole, with their arguments in the order that the protocol gives.
/// Reads "of all fields" give records (DataHelper::queryList); the others give ids (DataHelper::queryIds).
namespace reads {

QString highlightsOfKerno(int kernoId);
QString highlightsOfSource(int sourceId);
QString highlights(int sourceId, int questionId);
QString highlights(int sourceId, int questionId, int kernoId);
/// Of a source's highlights, or with 0 of all, only the ids and the place: a third of what all fields take.
QString highlightPlaces(int sourceId = 0);
/// Highlights that meet `sourceLength` characters from `sourceOffset`; a length of -1 means up to the end.
QString highlightsInWindow(int sourceId, int questionId, int sourceOffset, int sourceLength);
/// Read at the key `highlightQueryListBySourceQuestionAndKernos`; `kernoIds` is handed on as it stands.
QString highlightsOfKernos(int sourceId, int questionId, const QString& kernoIds);

QString highlightIds();
QString highlightIdsOfSource(int sourceId);
QString highlightIdsOfKerno(int kernoId);
QString highlightIdsOfKernoAndSource(int kernoId, int sourceId);
QString highlightIdsOfQuestion(int questionId);
QString highlightIdsOfQuestionAndSource(int questionId, int sourceId);

QString memosOfSource(int sourceId);
QString memos(int sourceId, int questionId);
/// Read at the key `memoQueryListWithOffset`.
QString memosInWindow(int sourceId, int questionId, int sourceOffset, int sourceLength);

QString answersOfSource(int sourceId);
/// Gives the field `sourceId` of every answer.
QString sourceIdsOfAnswers();
QString kernoIdsOfParent(int parentKernoId);
QString kernoIds();
/// Gives the field `parentKernoId` of every kerno.
QString parentKernoIds();
QString questionIds();
QString sourceIds();
QString metadataKeysByName(const QString& name);
QString metadataValuesOfKey(int keyId);

}  // namespace reads
