#pragma once

#include "link/Message.h"
#include "merge/ProjectRecords.h"
#include "project/Progress.h"

#include <QJsonObject>

class DataHelper;
class KRNFile;
class QIODevice;

/// A project in memory, outside the models: all its records, read from full project JSON or from the open
/// project, and written back as such.
class Project {
public:
    /// Reads the preferences from "project_json" of `identity`; the rest of `identity` tells the project from
    /// others.
    explicit Project(const QJsonObject& identity);
    virtual ~Project() = default;

    /// The object that names the project, without its contents.
    QJsonObject identity() const { return m_identity; }

    /// For a local project the path of its file.
    QString name() const;

    /// What no other project has: the UUID of one of the cloud, the path of a local one.
    QString key() const;

    QList<Preference> preferences() const { return m_records.preferences; }
    const ProjectRecords& records() const { return m_records; }
    ProjectRecords& records() { return m_records; }

    /// 1 for a project of plain sources, 0 for one of structured questions, -1 when it doesn't say.
    int singleQuestion() const;

    /// Whether the password opens the project. One that isn't encrypted opens with any.
    bool acceptsPassword(const QString& password) const;

    /// Fills all lists from a reply that brings a project. False when it can't be read, with what could be
    /// left out; the lists are then empty. Any thread.
    bool loadFromJson(const QByteArray& reply, const QString& password, const Progress& progress = {});

    /// Fills all lists but the preferences from the open project, whose texts have to be here; handles events
    /// meanwhile. Highlights of no source are left out. False when a list can't be read or the progress ends
    /// it. Main thread.
    bool loadFrom(KRNFile& file, const Progress& progress = {});

    /// The value of "project_json", with texts as they are.
    QJsonObject toJson() const;

    /// Stores all records as the new project that `target` names, with that password, and waits in a local
    /// event loop. The message's `json` holds `project`. A `target` without a name is an error. A progress
    /// that ends the work before it is sent gives a message without a text. The project has no records
    /// afterwards. Main thread.
    Message save(DataHelper& helper, const QJsonObject& target, const QString& password,
                 const Progress& progress = {});

private:
    /// Invalid when there is no such preference.
    QVariant preference(const QString& key) const;
    QList<Preference> storedPreferences(const QString& password) const;

    QJsonObject m_identity;
    ProjectRecords m_records;
};
