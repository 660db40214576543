#pragma once

#include "tests_support/RealService.h"
#include "tests_support/ScriptedHttp.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>
#include <memory>

/// The cloud as the program knows it, on the loopback: one account, its projects, tickets, and a real data
/// service behind the web socket, in whose folder the projects lie as files of their names. Tokens hold until
/// `expire`, and can be traded for new ones once.
class ScriptedCloud {
public:
    ScriptedCloud();

    /// Starts the data service; false when it can't be started. Without it the cloud has no web socket.
    bool start();

    /// What a person types as the server's address.
    QString address() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_http->port()); }
    ScriptedHttp& http() { return *m_http; }

    static QString email() { return QStringLiteral("ada@example.org"); }
    static QString password() { return QStringLiteral("a word, known to Ada"); }

    /// A project of the account, or one that is shared with it. Its file is made when it is first opened as
    /// new.
    QString addProject(const QString& name, bool shared = false);
    QStringList projectNames() const;
    /// Where the project of that name lies.
    QString file(const QString& name) const { return m_folder.filePath(name); }

    /// The access token that is out is not valid any more.
    void expire();
    /// Requests whose target begins so are answered in this way; an empty function ends that.
    void intercept(const QByteArray& target, const ScriptedHttp::Script& script);
    /// Every secret that was given out or asked for so far.
    QList<QByteArray> secrets() const;

private:
    HttpAnswer answer(const HttpAsked& asked);
    HttpAnswer answerAuth(const QByteArray& path, const QJsonObject& body);
    HttpAnswer answerProjects(const QByteArray& verb, const QByteArray& path, const HttpAsked& asked);
    HttpAnswer forward(const QByteArray& verb, const QByteArray& target, const QByteArray& body) const;
    QJsonObject newTokens();
    QJsonObject add(const QString& name, bool shared);
    QJsonObject project(const QString& uuid) const;
    bool writeFile(const QString& name, const QByteArray& content) const;

    QTemporaryDir m_folder;
    RealService m_service;
    mutable QMutex m_mutex;  ///< over the members below
    int m_number = 0;
    QByteArray m_access;
    QByteArray m_refresh;
    QByteArray m_ticket;
    QList<QByteArray> m_secrets;
    QJsonArray m_projects;
    QJsonArray m_shares;
    QByteArray m_intercepted;
    ScriptedHttp::Script m_interception;
    std::unique_ptr<ScriptedHttp> m_http;  ///< last: its thread uses the others
};
