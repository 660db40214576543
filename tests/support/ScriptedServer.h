#pragma once

#include "tests_support/ScriptedService.h"

#include <QHash>
#include <QMutex>
#include <QNetworkRequest>
#include <QObject>
#include <QWebSocketServer>
#include <optional>

/// The part of the scripted service that lives on its thread.
class ScriptedServer : public QObject {
    Q_OBJECT

public:
    ScriptedServer();

    /// Runs the function on this object's thread and waits for its result. Must not be called while stalled.
    template <typename Function> auto run(Function function) {
        using Result = decltype(function());
        if constexpr (std::is_void_v<Result>) {
            QMetaObject::invokeMethod(
                this, [&] { function(); }, Qt::BlockingQueuedConnection);
        } else {
            std::optional<Result> result;
            QMetaObject::invokeMethod(
                this, [&] { result = function(); }, Qt::BlockingQueuedConnection);
            return *result;
        }
    }

    /// The port, or 0.
    quint16 listen();
    void eachClient(const std::function<void(ScriptedClient&)>& action);
    int clientCount() const { return m_clients.size(); }

    /// Any thread.
    QList<wire::RequestFrame> requests() const;
    void forgetRequests();

    /// What the service says of a project that it has opened.
    static QJsonObject openedProject(const ScriptedRequest& request, const QString& access);

    QHash<QString, ScriptedService::Script> scripts;
    QNetworkRequest handshake;
    bool refusing = false;

private:
    void onNewConnection();
    void onText(QWebSocket& socket, const QString& text);

    QWebSocketServer* m_server = nullptr;
    QList<QWebSocket*> m_clients;
    mutable QMutex m_mutex;
    QList<wire::RequestFrame> m_requests;
};
