#pragma once

#include "merge/Project.h"

#include <QDateTime>
#include <QJsonObject>
#include <QObject>
#include <QVariantList>
#include <atomic>
#include <memory>
#include <vector>

/// Merges projects that aren't open into a new one, and looks into such: the context object `projectMerger`.
/// To try or to add a project its preferences are asked of the service, which is quick however large it is;
/// `merge` reads the projects one after another. All wait, on the main thread, in a local event loop. What
/// can't be read gives false and changes nothing.
class ProjectMerger : public QObject {
    Q_OBJECT
    /// Whether `merge` is at work, and how far it has come, in percent.
    Q_PROPERTY(bool merging READ isMerging NOTIFY progressed)
    Q_PROPERTY(int progress READ progress NOTIFY progressed)

public:
    /// `helper` is the link to the service; it isn't owned.
    explicit ProjectMerger(DataHelper* helper, QObject* parent = nullptr);

    /// Whether the password opens the project; one without a password opens with any.
    Q_INVOKABLE bool tryProjectPassword(const QJsonObject& project, const QString& password);

    /// Whether the project can be the master, or can be added to it: all projects of a merge are of one kind.
    Q_INVOKABLE bool tryProjectSingleQuestion(const QJsonObject& project, bool master);

    Q_INVOKABLE bool setMaster(const QJsonObject& project, const QString& password);
    Q_INVOKABLE bool addProject(const QJsonObject& project, const QString& password);
    /// False when it wasn't added.
    Q_INVOKABLE bool removeProject(const QJsonObject& project);

    /// Whether there is a project already where `merge` would write this one.
    Q_INVOKABLE bool exists(const QJsonObject& proj);

    /// Brings all added projects into the master and stores the result as the new project `proj` with that
    /// password. The projects themselves stay as they are. On failure nothing is stored.
    Q_INVOKABLE bool merge(const QJsonObject& proj, const QString& password);
    /// Ends `merge`, which then gives false and leaves nothing behind.
    Q_INVOKABLE void cancelMerge() { m_cancelled = true; }
    Q_INVOKABLE bool wasCancelled() const { return m_cancelled; }

    /// What the last successful `merge` has stored, to be opened.
    Q_INVOKABLE QJsonObject resultProject() const { return m_result; }

    Q_INVOKABLE void clearMerger();

    /// A map with "title" and "projects", the names of those that hold it, for each title of a source that
    /// stands in more than one project. Reads all projects; prints what it finds.
    Q_INVOKABLE QVariantList compareAllSourceByName();

    /// Why the last operation failed, as a sentence; empty when it didn't.
    Q_INVOKABLE QString lastError() const { return m_lastError; }

    bool isMerging() const { return m_merging; }
    int progress() const { return m_progress; }

signals:
    void progressed();

private:
    struct Input {
        QJsonObject identity;
        QString password;
        int singleQuestion = -1;
    };

    /// The project in the scratch slot, read from the service unless it is there already and its file has
    /// stayed as it was; null when it can't be read.
    const Project* load(const QJsonObject& identity);
    std::unique_ptr<Input> opened(const QJsonObject& project, const QString& password);
    std::unique_ptr<Project> read(const Input& input, const Progress& progress);
    std::vector<const Input*> inputs() const;
    bool mergeInputs(const QJsonObject& proj, const QString& password);
    void tell(int percent);

    static QString reasonOf(const Message& message, const QJsonObject& identity);

    DataHelper* m_helper;
    std::unique_ptr<Project> m_scratch;
    QDateTime m_scratchModified;
    std::unique_ptr<Input> m_master;
    std::vector<std::unique_ptr<Input>> m_added;
    QJsonObject m_result;
    QString m_lastError;
    bool m_merging = false;
    int m_progress = 0;
    std::atomic<bool> m_cancelled{false};
};
