#include "app/CloudHost.h"

#include "app/ProductSettings.h"
#include "app/UpdateCheck.h"
#include "link/ServiceConfig.h"

#include <QCoreApplication>
#include <QSettings>

namespace cloudhost {

namespace {

const QString key = QStringLiteral("cloudHost");

QString tr(const char* text) {
    return QCoreApplication::translate("CloudHost", text);
}

}  // namespace

// The application has no names yet.
void load() {
    const QSettings settings(product::organisationName(), product::applicationName());
    ServiceConfig::instance().setMachineHost(settings.value(key).toString());
}

QString store(const QString& text) {
    QString fault;
    const QString host = text.trimmed().isEmpty() ? QString() : ServiceConfig::readHost(text, &fault);
    if (!fault.isEmpty())
        return fault;
    QSettings settings(product::organisationName(), product::applicationName());
    if (host.isEmpty())
        settings.remove(key);
    else
        settings.setValue(key, host);
    ServiceConfig::instance().setMachineHost(host);
    return {};
}

Test test(const QString& text) {
    QString fault;
    const QString host = ServiceConfig::readHost(text, &fault);
    if (!fault.isEmpty())
        return {false, fault};
    const updatecheck::Answer answer = updatecheck::ask(ServiceConfig::urlAt(host, CloudCall::Version));
    if (!answer.error.isEmpty())
        return {false, answer.error};
    return answer.matches
               ? Test{true, tr("The server answers.")}
               : Test{false, tr("The server answers, but not as a server for this version of Kernova.")};
}

}  // namespace cloudhost
