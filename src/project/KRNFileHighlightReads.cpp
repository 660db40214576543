#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "models/KernoModel.h"
#include "project/KernoTree.h"
#include "project/RecordMaps.h"

namespace {

QVariantList queryHighlightIds(DataHelper* helper, const QString& text) {
    return helper->queryIds(text, wire::word(wire::Record::Highlight), QStringLiteral("id"));
}

QList<Highlight> queryHighlights(DataHelper* helper, const QString& text) {
    return helper->queryList<Highlight>(text, DataHelper::highlightKeys());
}

}  // namespace

QVariantList KRNFile::highlightIds() const {
    return queryHighlightIds(dataHelper(), reads::highlightIds());
}

QVariantList KRNFile::highlights() const {
    return toMaps(m_dataHelper->findAll<Highlight>());
}

QVariantList KRNFile::highlights(int sourceId) const {
    return toMaps(queryHighlights(dataHelper(), reads::highlightsOfSource(sourceId)));
}

QList<Highlight> KRNFile::highlights(int sourceId, int questionId) const {
    return queryHighlights(dataHelper(), reads::highlights(sourceId, questionId));
}

QVariantList KRNFile::highlights(int sourceId, int questionId, int offset, int length) const {
    return toMaps(
        queryHighlights(dataHelper(), reads::highlightsInWindow(sourceId, questionId, offset, length)));
}

QList<Highlight> KRNFile::highlightsOfKerno(int kernoId) const {
    return queryHighlights(dataHelper(), reads::highlightsOfKerno(kernoId));
}

QList<Highlight> KRNFile::highlightsOfKerno(int kernoId, int sourceId, int questionId) const {
    return queryHighlights(dataHelper(), reads::highlights(sourceId, questionId, kernoId));
}

Highlight KRNFile::highlight(int highlightId) const {
    return m_dataHelper->findById<Highlight>(highlightId);
}

QVariantList KRNFile::highlightIdsByKernoId(int kernoId) const {
    return queryHighlightIds(dataHelper(), reads::highlightIdsOfKerno(kernoId));
}

QVariantList KRNFile::highlightIdsByQuestionId(int questionId) const {
    return queryHighlightIds(dataHelper(), reads::highlightIdsOfQuestion(questionId));
}

QVariantList KRNFile::highlightIdsByQuestionAndSourceId(int questionId, int sourceId) const {
    return queryHighlightIds(dataHelper(), reads::highlightIdsOfQuestionAndSource(questionId, sourceId));
}

QVariantList KRNFile::highlightIdsByKernoIdAndSourceId(int kernoId, int sourceId) const {
    return queryHighlightIds(dataHelper(), reads::highlightIdsOfKernoAndSource(kernoId, sourceId));
}

QStringList KRNFile::highlightsAuthors() const {
    return m_dataHelper->queryAuthors(wire::word(wire::Record::Highlight));
}

int KRNFile::highlightsCount(int sourceId) const {
    return queryHighlightIds(dataHelper(), reads::highlightIdsOfSource(sourceId)).size();
}

int KRNFile::highlightsCountForKerno(int kernoId) const {
    return kernoModel()->highlightsCount(kernoId);
}

int KRNFile::highlightsCountForKernoWithChildren(int kernoId) const {
    return kernoModel()->highlightsCountWithChildren(kernoId);
}

int KRNFile::totalHighlightsCount() const {
    return highlightIds().size();
}

int KRNFile::maxHighlightsCount() const {
    return m_dataHelper->queryInt(wire::maxHighlightsCount(), wire::name::maxHighlightsCount);
}

int KRNFile::totalHighlightsCountByKernoId(int kernoId) const {
    return highlightIdsByKernoId(kernoId).size();
}

int KRNFile::totalHighlightsCountByKernoIdAndSourceId(int kernoId, int sourceId) const {
    return highlightIdsByKernoIdAndSourceId(kernoId, sourceId).size();
}

Memo KRNFile::memo(int memoId) const {
    return m_dataHelper->findById<Memo>(memoId);
}

QVariantList KRNFile::memos(int sourceId) const {
    return toMaps(m_dataHelper->queryList<Memo>(reads::memosOfSource(sourceId)));
}

QList<Memo> KRNFile::memos(int sourceId, int questionId) const {
    return m_dataHelper->queryList<Memo>(reads::memos(sourceId, questionId));
}
