#pragma once

#include <QQmlNetworkAccessManagerFactory>

/// Keeps the screens from loading anything over a network: what they show is data of people, and nothing in
/// it may be fetched. Resources, files and data in the address itself are read. Called from any thread.
class OfflineAccess : public QQmlNetworkAccessManagerFactory {
public:
    QNetworkAccessManager* create(QObject* parent) override;
};
