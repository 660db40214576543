#include "search/QueryResult.h"

#include "project/KRNFile.h"

namespace Search {

QVariantList QueryResult::ask(const QVariantList& criteria) {
    const QString kernoName = QStringLiteral("kerno");
    m_highlights.clear();
    QVariantList kernos;
    for (const QVariant& item : KRNFile::instance()->kernosWithHighlightsAndCriteria(criteria)) {
        const QVariantMap map = item.toMap();
        const QVariantMap kerno = map.value(kernoName).toMap();
        const QVariantList highlights = map.value(QStringLiteral("highlights")).toList();
        m_highlights.insert(kerno.value(QStringLiteral("kernoId")).toInt(), highlights);
        kernos.append(QVariantMap{{kernoName, kerno}, {QStringLiteral("count"), highlights.size()}});
    }
    return kernos;
}

}  // namespace Search
