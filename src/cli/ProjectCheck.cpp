#include "cli/ProjectCheck.h"

#include <QHash>
#include <QJsonArray>
#include <QSet>
#include <array>

namespace cli {

namespace {

struct Reference {
    const char* field;
    const char* list;
};

constexpr std::array<Reference, 7> references{{{"sourceId", "sources"},
                                               {"questionId", "questions"},
                                               {"kernoId", "kernos"},
                                               {"parentKernoId", "kernos"},
                                               {"groupId", "groups"},
                                               {"keyId", "source_metadata_keys"},
                                               {"valueId", "source_metadata_values"}}};

QSet<int> idsOf(const QJsonArray& list) {
    QSet<int> ids;
    for (const QJsonValue& record : list)
        ids.insert(record[QLatin1String("id")].toInt());
    return ids;
}

}  // namespace

bool isWhole(const QJsonObject& project) {
    QHash<QString, QSet<int>> ids;
    for (const Reference& reference : references) {
        const QString list = QString::fromLatin1(reference.list);
        if (!ids.contains(list))
            ids.insert(list, idsOf(project.value(list).toArray()));
    }
    for (const QJsonValue& list : project) {
        const QJsonArray records = list.toArray();
        for (const QJsonValue& record : records) {
            for (const Reference& reference : references) {
                const QJsonValue id = record[QLatin1String(reference.field)];
                const bool isTop = id.toInt() == -1 && QLatin1String(reference.field) == "parentKernoId";
                if (id.isDouble() && !isTop && !ids[QString::fromLatin1(reference.list)].contains(id.toInt()))
                    return false;
            }
        }
    }
    return true;
}

}  // namespace cli
