#pragma once

#include <QHash>
#include <QObject>
#include <QVariantList>

namespace Search {

/// The answer to a query of codings, in two steps: which kernos have how many highlights, and those of one
/// kerno. All highlights at once are up to a hundred thousand maps, and a script would wait a second for its
/// own form of them. For the main thread.
class QueryResult : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Asks the open project. One map for each kerno, in the order of
    /// KRNFile::kernosWithHighlightsAndCriteria and with its `kerno`; `count` is the number of its
    /// highlights. Blocks as that call does.
    Q_INVOKABLE QVariantList ask(const QVariantList& criteria);

    /// The maps of the highlights that the last answer has for a kerno.
    Q_INVOKABLE QVariantList highlightsOf(int kernoId) const { return m_highlights.value(kernoId); }

    /// Forgets the last answer.
    Q_INVOKABLE void clear() { m_highlights.clear(); }

private:
    QHash<int, QVariantList> m_highlights;
};

}  // namespace Search
