#include "app/Startup.h"

#include "app/CloudHost.h"
#include "app/KernovaApplication.h"
#include "app/ProductSettings.h"
#include "app/Session.h"
#include "app/TypeRegistration.h"
#include "app/UpdateCheck.h"
#include "project/KRNFile.h"

#include <QFontDatabase>
#include <QLoggingCategory>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

namespace startup {

namespace {

void loadFonts() {
    for (const char* file : {":/fonts/OpenSans-Regular.ttf", ":/fonts/OpenSans-Semibold.ttf",
                             ":/fonts/SourceCodePro-Regular.ttf", ":/fonts/SourceCodePro-Bold.ttf",
                             ":/fonts/Lato-Regular.ttf", ":/fonts/Lato-Bold.ttf"}) {
        QFontDatabase::addApplicationFont(QString::fromLatin1(file));
    }
    QApplication::setFont(QFont(QStringLiteral("Lato")));
}

// Whether OpenGL is missing, or done by the processor: then the scene's own drawing is the quicker one.
bool lacksGraphicsCard() {
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    if (!context.create() || !context.makeCurrent(&surface))
        return true;
    const QByteArray renderer(reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER)));
    return renderer.contains("llvmpipe") || renderer.contains("softpipe") || renderer.contains("swrast");
}

void chooseBackend() {
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND") && lacksGraphicsCard())
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
}

}  // namespace

void prepare() {
    registration::registerEarlyMetaTypes();
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache, true);
    // The web engine draws the report into the windows of this program.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts, true);
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Direct3D12);
    cloudhost::load();
}

KRNFile* setUp() {
    chooseBackend();
    QApplication::setStyle(QStringLiteral("fusion"));
    QCoreApplication::setOrganizationName(product::organisationName());
    QCoreApplication::setOrganizationDomain(product::organisationDomain());
    QCoreApplication::setApplicationName(product::applicationName());
    QCoreApplication::setApplicationVersion(QStringLiteral(KERNOVA_VERSION));
    KRNFile* const krnFile = KRNFile::instance();
    krnFile->initModels();
    QLoggingCategory::setFilterRules(
        QStringLiteral("appHelper.debug=false\n highlighter.debug=false\n documentChangeTracker=false"));
    loadFonts();
    registration::registerModelMetaTypes();
    registration::registerQmlTypes();
    return krnFile;
}

int run(int& argc, char** argv) {
    prepare();
    KernovaApplication application(argc, argv);
    if (updatecheck::userLeavesToUpdate())
        return 0;
    KRNFile* const krnFile = setUp();
    Session session(application, krnFile);
    session.load();
    return QApplication::exec();
}

}  // namespace startup
