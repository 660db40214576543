#include "export/QuotesBySource.h"

#include <algorithm>

QuotesBySource::QuotesBySource(const QList<Highlight>& highlights) {
    for (const Highlight& highlight : highlights) {
        ++m_ofSource[highlight.sourceId()];
        ++m_ofKerno[highlight.kernoId()];
        ++m_counts[{highlight.kernoId(), highlight.sourceId()}];
    }
}

void QuotesBySource::setSources(const QList<Source>& sources) {
    QHash<QString, int> titles;
    m_columns.clear();
    for (const Source& source : sources) {
        const QString title = source.title();
        if (!titles.contains(title))
            titles.insert(title, titles.size());
        m_columns.append({source.sourceId(), titles.value(title)});
    }
    m_titles = titles.size();
    m_byId = m_columns;
    std::sort(m_byId.begin(), m_byId.end(),
              [](const Column& a, const Column& b) { return a.sourceId < b.sourceId; });
}

QVector<QuotesBySource::Share> QuotesBySource::sharesOfKerno(int kernoId) const {
    QVector<Share> ofTitle(m_titles);
    for (const Column& column : m_byId) {
        const int count = m_counts.value({kernoId, column.sourceId});
        if (count > 0 && ofTitle.at(column.title).ofKerno == 0)
            ofTitle[column.title] = {count, m_ofSource.value(column.sourceId)};
    }
    QVector<Share> shares;
    shares.reserve(m_columns.size());
    for (const Column& column : m_columns) {
        const Share share = ofTitle.at(column.title);
        shares.append(share.ofKerno > 0 ? share : Share{0, m_ofSource.value(column.sourceId)});
    }
    return shares;
}
