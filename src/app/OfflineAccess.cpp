#include "app/OfflineAccess.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

namespace {

bool isHere(const QUrl& url) {
    return url.scheme() == QLatin1String("qrc") || url.scheme() == QLatin1String("data") ||
           (url.isLocalFile() && url.host().isEmpty());
}

class OfflineManager : public QNetworkAccessManager {
public:
    using QNetworkAccessManager::QNetworkAccessManager;

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request,
                                 QIODevice* data) override {
        // An address without a known scheme gives a reply that has failed, and opens no connection.
        const QNetworkRequest refused(QUrl(QStringLiteral("refused:")));
        return QNetworkAccessManager::createRequest(operation, isHere(request.url()) ? request : refused,
                                                    data);
    }
};

}  // namespace

QNetworkAccessManager* OfflineAccess::create(QObject* parent) {
    return new OfflineManager(parent);
}
