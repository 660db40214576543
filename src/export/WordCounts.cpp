#include "export/WordCounts.h"

#include <algorithm>

namespace {

bool separates(QChar c) {
    switch (c.unicode()) {
    case u'.':
    case u'!':
    case u'?':
    case u',':
    case u' ':
    case u':':
    case u'"':
    case u'\n':
    case u'\r':
        return true;
    default:
        return false;
    }
}

}  // namespace

void WordCounts::add(QStringView text) {
    auto at = text.begin();
    while (at != text.end()) {
        const auto first = std::find_if_not(at, text.end(), separates);
        at = std::find_if(first, text.end(), separates);
        if (at != first)
            ++m_counts[QStringView(first, at)];
    }
}

QVector<WordCounts::Count> WordCounts::sorted() const {
    QVector<Count> counts;
    counts.reserve(m_counts.size());
    for (auto it = m_counts.begin(); it != m_counts.end(); ++it)
        counts.append({it.key(), it.value()});
    std::sort(counts.begin(), counts.end(), [](const Count& a, const Count& b) { return a.word < b.word; });
    return counts;
}
