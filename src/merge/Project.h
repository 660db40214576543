#pragma once

#include "records/Preference.h"

#include <QJsonObject>
#include <QList>

/// A project in memory, outside the models, read from its full JSON.
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

    QList<Preference> preferences() const { return m_preferences; }

    /// 1 for a project of plain sources, 0 for one of structured questions, -1 when it doesn't say.
    int singleQuestion() const;

    /// Whether the password opens the project. One that isn't encrypted opens with any.
    bool acceptsPassword(const QString& password) const;

private:
    /// Invalid when there is no such preference.
    QVariant preference(const QString& key) const;

    QJsonObject m_identity;
    QList<Preference> m_preferences;
};
