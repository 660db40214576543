#pragma once

#include "merge/Project.h"

#include <QDateTime>
#include <QJsonObject>
#include <QObject>
#include <memory>
#include <vector>

class DataHelper;
struct Message;

/// Looks into projects that aren't open: the context object `projectMerger`. Every operation that has to read
/// a project asks the service for its preferences, which is quick however large it is, and waits, on the main
/// thread; one that can't be read gives false.
class ProjectMerger : public QObject {
    Q_OBJECT

public:
    /// `helper` is the link to the service; it isn't owned.
    explicit ProjectMerger(DataHelper* helper, QObject* parent = nullptr);

    /// Whether the password opens the project; one without a password opens with any.
    Q_INVOKABLE bool tryProjectPassword(const QJsonObject& project, const QString& password);

    /// Whether the project can be the master, or can be added to it: all projects of a merge are of one kind.
    Q_INVOKABLE bool tryProjectSingleQuestion(const QJsonObject& project, bool master);

    /// Why the last operation could not read its project, as a sentence; empty when it could.
    Q_INVOKABLE QString lastError() const { return m_lastError; }

private:
    /// The project in the scratch slot, read from the service unless it is there already and its file has
    /// stayed as it was; null when it can't be read.
    const Project* load(const QJsonObject& identity);

    static QString reasonOf(const Message& message, const QJsonObject& identity);

    DataHelper* m_helper;
    std::unique_ptr<Project> m_scratch;
    QDateTime m_scratchModified;
    std::unique_ptr<Project> m_master;
    std::vector<std::unique_ptr<Project>> m_added;
    QString m_lastError;
};
