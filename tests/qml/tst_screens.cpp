#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "tests_support/AllModels.h"
#include "tests_support/TestMain.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest/quicktest.h>
#include <cstdio>

namespace {

int unexpectedMessages = 0;
QtMessageHandler testHandler = nullptr;

/// Every warning is a fault of the screens, but the one on the scene graph's backend where there is none. The
/// test library's own handler goes on printing them.
void countMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type != QtDebugMsg && type != QtInfoMsg && !message.contains("'d3d12'"_s))
        ++unexpectedMessages;
    if (testHandler)
        testHandler(type, context, message);
}

}  // namespace

/// What a test asks for, as `study`: a project at the real service with what the test needs in it.
class Study : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString path READ path CONSTANT)

public:
    explicit Study(Session& session) : m_session(session), m_file(*KRNFile::instance()) {}

    QString path() const { return m_folder.filePath("study.krn"_s); }

    /// A new project in the place of the former one.
    Q_INVOKABLE bool open() {
        return m_file.dataHelper()->connection()->connect(false) &&
               m_file.openProject({{"name"_s, path()}, {"project_uuid"_s, QString()}}, true, {}, true, true);
    }
    /// The project's kernos are these alone: id, parent, x and y of each. Nothing is coded, and nothing can
    /// be undone.
    Q_INVOKABLE void setKernos(const QVariantList& rows) {
        for (const Kerno& kerno : m_file.kernoModel()->snapshot()) {
            m_file.batchDeleteHighlights(m_file.highlightsOfKerno(kerno.id()));
            m_file.deleteKerno(kerno);
        }
        for (const QVariant& row : rows) {
            const QVariantList v = row.toList();
            m_file.saveKerno(Kerno(v[0].toInt(), v[1].toInt(), QColor(0x30, 0x60, 0xc0),
                                   'K' + v[0].toString(), {}, {}, "Ann"_s, v[2].toInt(), v[3].toInt()));
        }
        settle();
        m_session.undoManager().clearStack();
    }
    /// A source with this answer to the first question.
    Q_INVOKABLE void setSource(int id, const QString& title, const QString& answer) {
        m_file.saveSource(Source(id, title, {}, "Ann"_s, {}));
        m_file.saveAnswer(QuestionAnswer(id, 1, id, "Ann"_s, answer, {}));
        settle();
    }
    /// Returns when everything that was sent has been stored, and has reached the models.
    Q_INVOKABLE void settle() {
        m_file.kernoIds();
        QCoreApplication::processEvents();
    }
    Q_INVOKABLE bool exists(const QString& file) const { return QFileInfo(file).isFile(); }
    Q_INVOKABLE void clear(const QString& file) const {
        QFile::remove(file);
        QDir(file).removeRecursively();
    }
    /// A folder with something in it stands where a file is to come.
    Q_INVOKABLE void block(const QString& file) const { QDir().mkpath(file + "/full"_s); }

private:
    QTemporaryDir m_folder;
    Session& m_session;
    KRNFile& m_file;
};

/// Gives each engine the program's objects.
class Setup : public QObject {
    Q_OBJECT

public:
    Setup() : m_session(*static_cast<KernovaApplication*>(qApp), startup::setUp()), m_study(m_session) {}

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        const QtMessageHandler current = qInstallMessageHandler(countMessages);
        if (current != countMessages)
            testHandler = current;
        QQmlContext* context = engine->rootContext();
        for (const QString& name : {"krnFile"_s, "appHelper"_s, "undoManager"_s, "instantiator"_s,
                                    "projectMerger"_s, "idManager"_s})
            context->setContextProperty(name, m_session.engine().rootContext()->contextProperty(name));
        context->setContextProperty("study"_s, &m_study);
    }

private:
    Session m_session;
    Study m_study;
};

int main(int argc, char** argv) {
    TestEnvironment environment;
    startup::prepare();
    KernovaApplication application(argc, argv);
    Setup setup;
    const int failures = quick_test_main_with_setup(argc, argv, "screens", QUICK_TEST_SOURCE_DIR, &setup);
    qInstallMessageHandler(nullptr);
    if (unexpectedMessages > 0)
        std::fprintf(stderr, "%d unexpected messages\n", unexpectedMessages);
    return failures + unexpectedMessages;
}

#include "tst_screens.moc"
