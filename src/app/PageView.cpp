#include "app/PageView.h"

#include <QUrl>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

class FilesOnly : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        const QString scheme = request.requestUrl().scheme();
        const bool here = scheme == QLatin1String("file") || scheme == QLatin1String("data") ||
                          scheme == QLatin1String("blob");
        request.block(!here);
    }
};

}  // namespace

bool pageview::canRun() {
#ifdef Q_OS_UNIX
    return geteuid() != 0 || qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 1 ||
           qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("--no-sandbox");
#else
    return true;
#endif
}

QWebEngineView* pageview::make(const QUrl& page, QWidget* parent) {
    QWebEngineProfile::defaultProfile()->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    auto* const view = new QWebEngineView(parent);
    view->setContextMenuPolicy(Qt::NoContextMenu);
    view->page()->setUrlRequestInterceptor(new FilesOnly(view->page()));
    QWebEngineSettings* const settings = view->settings();
    settings->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    view->setUrl(page);
    return view;
}
