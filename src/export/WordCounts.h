#pragma once

#include <QHash>
#include <QStringView>
#include <QVector>

/// Counts the words of plain texts, as they stand: "The" and "the" are two. A word ends at one of `.!?, :"`,
/// at a line feed and at a carriage return.
class WordCounts {
public:
    struct Count {
        QStringView word;
        int count;
    };

    /// The text has to outlive the counts.
    void add(QStringView text);

    /// In the order of the words' characters.
    QVector<Count> sorted() const;

private:
    QHash<QStringView, int> m_counts;
};
