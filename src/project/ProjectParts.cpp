#include "project/ProjectParts.h"

#include "project/ProjectPreferences.h"

#include <QJsonArray>
#include <initializer_list>

namespace projectparts {

namespace {

const QString keyPreferences = QStringLiteral("preferences");

QJsonObject part(const QJsonObject& project, std::initializer_list<const char*> lists) {
    QJsonObject part;
    for (const char* name : lists) {
        const QString list = QString::fromLatin1(name);
        part.insert(list, project.value(list).toArray());
    }
    return part;
}

/// Without those of the keys: the part is not open anywhere, and knows no more than it holds.
QJsonArray preferencesWithout(const QJsonObject& project, const QStringList& keys) {
    QJsonArray kept;
    const QJsonArray all = project.value(keyPreferences).toArray();
    for (const QJsonValue& preference : all) {
        if (!keys.contains(preference.toObject().value(QLatin1String("key")).toString()))
            kept.append(preference);
    }
    return kept;
}

}  // namespace

QJsonObject sourcesOnly(const QJsonObject& project) {
    QJsonObject sources = part(project, {"sources", "questions", "question_answers", "source_metadata_keys",
                                         "source_metadata_values", "source_metadatas"});
    sources.insert(keyPreferences, preferencesWithout(project, {preference::openLock}));
    return sources;
}

QJsonObject structureOnly(const QJsonObject& project) {
    QJsonObject structure = part(project, {"kernos", "groups", "group_kernos", "kerno_shortcut_keys",
                                           "questions", "source_metadata_keys", "source_metadata_values"});
    structure.insert(keyPreferences,
                     preferencesWithout(project, {preference::openLock, preference::currentSources}));
    return structure;
}

}  // namespace projectparts
