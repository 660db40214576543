#include "merge/ProjectMerger.h"

#include "service/DataHelper.h"

#include <QFileInfo>

ProjectMerger::ProjectMerger(DataHelper* helper, QObject* parent) : QObject(parent), m_helper(helper) {}

const Project* ProjectMerger::load(const QJsonObject& identity) {
    m_lastError.clear();
    const QDateTime modified = QFileInfo(identity.value(QLatin1String("name")).toString()).lastModified();
    if (m_scratch && m_scratch->identity() == identity && m_scratchModified == modified)
        return m_scratch.get();
    const Message message = m_helper->exportProjectJson(identity);
    const QJsonValue json = message.json.value(QLatin1String("project_json"));
    if (!message.status || !json.isObject()) {
        m_lastError = message.message.isEmpty() ? tr("The project could not be read.") : message.message;
        return nullptr;
    }
    QJsonObject whole = identity;
    whole.insert(QStringLiteral("project_json"), json);
    m_scratch = std::make_unique<Project>(whole);
    m_scratchModified = modified;
    return m_scratch.get();
}

bool ProjectMerger::tryProjectPassword(const QJsonObject& project, const QString& password) {
    const Project* loaded = load(project);
    return loaded && loaded->acceptsPassword(password);
}

bool ProjectMerger::tryProjectSingleQuestion(const QJsonObject& project, bool master) {
    const Project* loaded = load(project);
    if (!loaded || loaded->singleQuestion() == -1)
        return false;
    if (master)
        return true;
    return m_master ? loaded->singleQuestion() == m_master->singleQuestion() : m_added.empty();
}
