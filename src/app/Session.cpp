#include "app/Session.h"

#include "app/KernovaApplication.h"
#include "link/IdManager.h"
#include "project/KRNFile.h"

#include <QQmlContext>

Session::Session(KernovaApplication& application, KRNFile* krnFile)
    : m_application(application), m_krnFile(krnFile), m_undoManager(krnFile),
      m_appHelper(&m_undoManager, krnFile), m_projectMerger(krnFile->dataHelper()) {
    m_application.setAppHelper(&m_appHelper);
    QObject::connect(&m_termination, &TerminationSignals::received, &m_application, &QCoreApplication::quit);
    m_engine.setNetworkAccessManagerFactory(&m_access);
    m_engine.setIncubationController(&m_incubation);
    QQmlContext* context = m_engine.rootContext();
    context->setContextProperty(QStringLiteral("krnFile"), m_krnFile);
    context->setContextProperty(QStringLiteral("appHelper"), &m_appHelper);
    context->setContextProperty(QStringLiteral("undoManager"), &m_undoManager);
    context->setContextProperty(QStringLiteral("instantiator"), &m_instantiator);
    context->setContextProperty(QStringLiteral("projectMerger"), &m_projectMerger);
    context->setContextProperty(QStringLiteral("idManager"), IdManager::instance());
}

Session::~Session() {
    m_krnFile->closeAndReset();
    m_application.setAppHelper(nullptr);
    // An item that goes while it is loaded tells the engine, which must still be there.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Session::load() {
    m_engine.load(QUrl(QStringLiteral("qrc:///qml/main.qml")));
    return !m_engine.rootObjects().isEmpty();
}
