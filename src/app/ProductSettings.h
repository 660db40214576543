#pragma once

#include <QString>
#include <QUrl>

/// What a vendor settles: names under which settings are stored, and the pages that the program opens.
/// Changing the organisation's name or domain makes existing settings disappear.
namespace product {

inline QString organisationName() {
    return QStringLiteral("Kernova");
}
inline QString applicationName() {
    return QStringLiteral("Kernova");
}
inline QString organisationDomain() {
    return QStringLiteral("kernova.example");
}

inline QUrl page(const QString& path) {
    return QUrl(QStringLiteral("https://www.kernova.example") + path);
}

inline QUrl downloadPage() {
    return page(QStringLiteral("/download"));
}
inline QUrl passwordResetPage() {
    return page(QStringLiteral("/account/password-reset"));
}
inline QUrl accountPage() {
    return page(QStringLiteral("/account"));
}
inline QUrl projectsPage() {
    return page(QStringLiteral("/account/projects"));
}
inline QUrl registrationPage() {
    return page(QStringLiteral("/account/register"));
}
inline QUrl manualPage() {
    return page(QStringLiteral("/manual.pdf"));
}
inline QUrl supportPage() {
    return page(QStringLiteral("/support"));
}

}  // namespace product
