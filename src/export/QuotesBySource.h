#pragma once

#include "records/Highlight.h"
#include "records/Source.h"

#include <QHash>
#include <QList>
#include <QVector>

/// How many of a source's highlights each kerno has, for all kernos and sources of a project.
class QuotesBySource {
public:
    explicit QuotesBySource(const QList<Highlight>& highlights);

    /// The columns of the shares.
    void setSources(const QList<Source>& sources);

    struct Share {
        int ofKerno = 0;
        int all = 0;  ///< highlights of the source
    };

    int ofKerno(int kernoId) const { return m_ofKerno.value(kernoId); }

    /// One for each source, in their order. Sources are told apart by their titles alone, as in a table whose
    /// columns are titles: those of one title all have the share of the first, by id, in which the kerno
    /// occurs.
    QVector<Share> sharesOfKerno(int kernoId) const;

private:
    struct Column {
        int sourceId;
        int title;  ///< a number for each different title
    };

    QVector<Column> m_columns;
    QVector<Column> m_byId;
    QHash<int, int> m_ofSource;
    QHash<int, int> m_ofKerno;
    QHash<QPair<int, int>, int> m_counts;  ///< by kerno and source
    int m_titles = 0;
};
