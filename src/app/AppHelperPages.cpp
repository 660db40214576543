#include "app/AppHelper.h"
#include "app/AppLog.h"
#include "app/ProductSettings.h"

#include <QDesktopServices>

namespace {

bool openPage(const QUrl& page, const char* failure) {
    const bool opened = QDesktopServices::openUrl(page);
    if (!opened)
        qCDebug(logAppHelper) << failure;
    return opened;
}

}  // namespace

bool AppHelper::openUrl(const QUrl& url) const {
    return QDesktopServices::openUrl(url);
}

bool AppHelper::openManual() const {
    return openUrl(product::manualPage());
}

bool AppHelper::passwordReset() const {
    return openPage(product::passwordResetPage(), "Failed to open password reset page...");
}

bool AppHelper::manageAccount() const {
    return openPage(product::accountPage(), "Failed to open account page...");
}

bool AppHelper::manageProjects() const {
    return openPage(product::projectsPage(), "Failed to open project page...");
}

bool AppHelper::signUp() const {
    return openPage(product::registrationPage(), "Failed to open registration page...");
}

bool AppHelper::goToWebsite() const {
    return openPage(product::supportPage(), "Failed to open website url...");
}
