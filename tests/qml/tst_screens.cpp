#include "MockRows.h"

#include "import/TransposedCSVImportModel.h"
#include "models/ComboBoxProxyModel.h"
#include "models/FetchMoreListModel.h"
#include "models/KernoHierarchyModel.h"
#include "models/KernoOverlapModel.h"
#include "models/SourceMetadataProxyModels.h"
#include "models/VariantListModel.h"

#include <QApplication>
#include <QFont>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QtQuickTest/quicktest.h>

#include <cstdio>

namespace {

int unexpectedMessages = 0;
QtMessageHandler testHandler = nullptr;

/// Every warning is a fault of the screens. The test library's own handler goes on printing them.
void countMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type != QtDebugMsg && type != QtInfoMsg)
        ++unexpectedMessages;
    if (testHandler)
        testHandler(type, context, message);
}

}  // namespace

/// Registers the module's types and gives the engine stand-ins of the program's objects.
class Setup : public QObject {
    Q_OBJECT

public:
    Setup() {
        const auto mock = [](const char* name) {
            return QUrl::fromLocalFile(
                QStringLiteral(QUICK_TEST_SOURCE_DIR "/mock/%1.qml").arg(QLatin1String(name)));
        };
        qmlRegisterType<MockRows>("KernovaMock", 1, 0, "MockRows");
        qmlRegisterType(mock("KernovaTextEditBase"), "Kernova", 1, 2, "KernovaTextEditBase");
        qmlRegisterType(mock("KernovaWindow"), "Kernova", 1, 2, "KernovaWindow");
        qmlRegisterType(mock("DocumentChangeTracker"), "Kernova", 1, 0, "DocumentChangeTracker");
        qmlRegisterType(mock("SourceTabs"), "Kernova", 1, 4, "SourceTabs");
        qmlRegisterType<MockKernovaQml>("Kernova", 1, 0, "KernovaQML");
        qmlRegisterType<MockKernos>("Kernova", 1, 4, "KernoProxyModel");
        qmlRegisterType<MockKernoChoice>("Kernova", 1, 4, "KernoComboBoxModel");
        qmlRegisterType<MockRows>("Kernova", 1, 4, "KernoShortcutKeyProxyModel");
        // These need no project: without one they are empty.
        qmlRegisterType<TransposedCSVImportModel>("Kernova", 1, 4, "TransposedCSVImportModel");
        qmlRegisterType<VariantListModel>("Kernova", 1, 0, "VariantListModel");
        qmlRegisterType<FetchMoreListModel>("Kernova", 1, 4, "FetchMoreListModel");
        qmlRegisterType<KernoHierarchyModel>("Kernova", 1, 4, "KernoHierarchyModel");
        qmlRegisterType<KernoOverlapModel>("Kernova", 1, 4, "KernoOverlapModel");
        qmlRegisterType<SourceMetadataKeyProxyModel>("Kernova", 1, 4, "MetadataKeyModel");
        qmlRegisterType<SourceMetadataValueProxyModel>("Kernova", 1, 4, "MetadataValueModel");
        qmlRegisterType<SourceMetadataProxyModel>("Kernova", 1, 4, "SourceMetadataModel");
        qmlRegisterType<SourceMetadataValueComboBoxProxyModel>("Kernova", 1, 4,
                                                               "SourceMetadataValueComboBoxModelProxy");
        qmlRegisterType<MockSources>("Kernova", 1, 4, "SourceProxyModel");
        qmlRegisterType<MockAnswers>("Kernova", 1, 4, "AnswerModel");
    }

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        const QtMessageHandler current = qInstallMessageHandler(countMessages);
        if (current != countMessages)
            testHandler = current;
        QQmlContext* context = engine->rootContext();
        context->setContextProperty(QStringLiteral("mockKernos"), MockKernos::source());
        context->setContextProperty(QStringLiteral("mockSources"), MockSources::source());
        context->setContextProperty(QStringLiteral("mockAnswers"), MockAnswers::source());
        const QList<QPair<QString, QString>> objects = {
            {QStringLiteral("krnFile"), QStringLiteral("KrnFile")},
            {QStringLiteral("appHelper"), QStringLiteral("AppHelper")},
            {QStringLiteral("undoManager"), QStringLiteral("UndoManager")},
            {QStringLiteral("instantiator"), QStringLiteral("Instantiator")},
            {QStringLiteral("projectMerger"), QStringLiteral("ProjectMerger")},
            {QStringLiteral("idManager"), QStringLiteral("IdManager")}};
        for (const auto& object : objects) {
            QQmlComponent component(
                engine,
                QUrl::fromLocalFile(QStringLiteral(QUICK_TEST_SOURCE_DIR "/mock/%1.qml").arg(object.second)));
            QObject* created = component.create(context);
            if (!created)
                qFatal("%s", qPrintable(component.errorString()));
            created->setParent(engine);
            context->setContextProperty(object.first, created);
        }
    }
};

int main(int argc, char** argv) {
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache, true);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setFont(QFont(QStringLiteral("Lato")));
    QCoreApplication::setOrganizationName(QStringLiteral("Kernova tests"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("kernova.invalid"));
    Setup setup;
    const int failures = quick_test_main_with_setup(argc, argv, "screens", QUICK_TEST_SOURCE_DIR, &setup);
    if (unexpectedMessages > 0)
        std::fprintf(stderr, "%d unexpected messages\n", unexpectedMessages);
    return failures + unexpectedMessages;
}

#include "tst_screens.moc"
