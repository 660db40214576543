#pragma once

#include "records/Highlight.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "search/Excerpts.h"
#include "search/SearchCriteria.h"
#include "search/SearchTerm.h"

#include <QObject>
#include <QVariantList>

class KRNFile;

namespace Search {

/// What to search for and where. `sourceId` limits it to one source when above 0; `criteria` are the rows of
/// the search panel, which all have to hold when `isAnd` is set.
struct Request {
    QString term = {};
    int sourceId = 0;
    Options options = {};
    QStringList synonyms = {};
    QVariantList criteria = {};
    bool isAnd = false;
};

/// Finds a term in the texts of the open project and gives excerpts with the hits marked. It runs in the
/// call, on the main thread. When texts of the project are still on their way it waits for them in an event
/// loop; the user may give that up.
class SourceSearch : public QObject {
    Q_OBJECT

public:
    explicit SourceSearch(KRNFile* file, QObject* parent = nullptr);

    /// Does nothing while a search waits for texts. When texts or codings could not be had,
    /// `resultsAvailable` doesn't come, and the user is told.
    void search(const Request& request);

    /// The excerpt [start, start + length) of an answer, marked as in the last search.
    QuestionAnswer extendedResult(int sourceId, int questionId, int start, int length) const;

signals:
    void started();
    /// Each result is a `QuestionAnswer` whose `offset` is its place in the whole answer.
    void resultsAvailable(QVariantList results);
    void finished();

private:
    bool find(const Request& request, QVariantList& results) const;
    QList<Source> passingSources(const Request& request, const Criteria& criteria) const;
    using Candidates = QVector<QPair<QuestionAnswer, Stretch>>;
    bool findCandidates(const QList<Source>& sources, const Request& request, const Criteria& criteria,
                        Candidates& list) const;
    bool readHighlights(const QList<Source>& sources, const QList<KernoCriterion>& criteria,
                        QList<Highlight>& list) const;
    QVariantList propertyValues(int sourceId, int keyId) const;

    KRNFile* m_file;
    QRegularExpression m_hit;
    bool m_running = false;
};

}  // namespace Search
