#include "app/AppHelper.h"
#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"
#include "link/DataHelper.h"
#include "models/KernoModel.h"
#include "project/KRNFile.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QMouseEvent>
#include <QQmlContext>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <private/qquickwindow_p.h>

// What the screens cost: the real window with the real service beside it, in projects of many kernos. Needs a
// display. What is measured of a step of the mouse is the scene's own work (handlers, bindings, laying out);
// the drawing of the frame is not in it.

namespace {

constexpr int bound = 120000;  // ms
constexpr int questionLength = 20000;
constexpr int batchSize = 5000;

const QString author = QStringLiteral("Ann Author");

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// Handles events until the condition holds; false when it doesn't come.
bool until(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > bound)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void settle() {
    QElapsedTimer timer;
    timer.start();
    until([&] { return timer.elapsed() > 600; });
}

/// The processor time of this thread so far, in milliseconds: what others do on the machine is not in it.
double threadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

struct Took {
    double elapsed;
    double own;  ///< of the main thread
};

Took timeUntil(const std::function<void()>& work, const std::function<bool()>& condition, const char* what) {
    QElapsedTimer timer;
    timer.start();
    const double before = threadMilliseconds();
    work();
    if (!until(condition))
        std::printf("%s does not come\n", what);
    return {static_cast<double>(timer.elapsed()), threadMilliseconds() - before};
}

void collect(QQuickItem* root, const QString& type, QList<QQuickItem*>& found) {
    if (!root->isVisible())
        return;
    if (QString::fromLatin1(root->metaObject()->className()).startsWith(type + QLatin1Char('_')))
        found << root;
    const QList<QQuickItem*> children = root->childItems();
    for (QQuickItem* child : children)
        collect(child, type, found);
}

class Screens {
public:
    explicit Screens(Session& session) : m_session(session) {}

    bool start();
    /// Evaluates where CentralManager is known.
    void set(const QString& expression);
    /// Makes a project of so many kernos; those from `childrenFrom` on are children of the first.
    void makeProject(const QString& name, int kernos, int childrenFrom);
    void addHighlights(int count, int kernos);
    /// Opens a project, which ends the one that is open; makes it where there is none.
    void open(const QString& name);
    QList<QQuickItem*> shown(const char* type) const;
    QQuickWindow* window() const { return m_window; }
    /// The time of one event of the mouse with all that it sets off at once, in milliseconds.
    double mouse(QEvent::Type type, const QPointF& point, Qt::MouseButtons buttons);

private:
    Session& m_session;
    QTemporaryDir m_folder;
    QQuickWindow* m_window = nullptr;
};

bool Screens::start() {
    if (!m_session.load() || !m_session.appHelper().connectToServer(false))
        return false;
    const bool appeared = until([this] {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (window->inherits("KernovaWindow") && window->isExposed())
                m_window = static_cast<QQuickWindow*>(window);
        }
        return m_window != nullptr;
    });
    if (!appeared)
        return false;
    set(text("CentralManager.cloud = false; CentralManager.showLogin = false"));
    return true;
}

void Screens::set(const QString& expression) {
    const QList<QQuickItem*> screens = shown("MainScreen");
    QQuickItem* const item = screens.value(0, m_window->contentItem());
    QQmlExpression evaluation(qmlContext(item), item, expression);
    evaluation.evaluate();
    if (evaluation.hasError())
        std::printf("%s\n", qPrintable(evaluation.error().toString()));
}

QList<QQuickItem*> Screens::shown(const char* type) const {
    QList<QQuickItem*> found;
    collect(m_window->contentItem(), QString::fromLatin1(type), found);
    return found;
}

void Screens::open(const QString& name) {
    const QString path = m_folder.filePath(name + text(".krn"));
    set(text("CentralManager.openProject({ name: '%1' }, '', %2, true, true)")
            .arg(path, QFile::exists(path) ? text("false") : text("true")));
    if (!KRNFile::instance()->isOpened())
        std::printf("%s does not open\n", qPrintable(path));
}

void Screens::makeProject(const QString& name, int kernos, int childrenFrom) {
    open(name);
    DataHelper& helper = *KRNFile::instance()->dataHelper();
    for (int id = 1; id <= kernos; ++id) {
        const int parent = id >= childrenFrom ? 1 : -1;
        const QColor color = QColor::fromHsv((id * 47) % 360, 200, 220);
        helper.save(Kerno(id, parent, color, text("Topic %1").arg(id),
                          text("What participants say about topic %1").arg(id), {}, author,
                          20 + (id * 37) % 660, 20 + (id * 53) % 480),
                    true);
    }
    for (int id = 1; id <= 20; ++id) {
        helper.save(Source(id, text("Interview %1").arg(id), QString(), author, {}));
        helper.save(QuestionAnswer(id, 1, id, author, text("word ").repeated(questionLength / 5), {}));
    }
    KRNFile::instance()->kernoIds();
    settle();
}

void Screens::addHighlights(int count, int kernos) {
    for (int from = 1; from <= count; from += batchSize) {
        QList<Highlight> batch;
        for (int id = from; id < from + batchSize; ++id) {
            const int start = (id / 20) * 17 % (questionLength - 60);
            batch << Highlight(id, 1 + id % kernos, 1 + id % 20, 1, {}, start, 40, start + 40, author, {}, 0,
                               0, 0, false);
        }
        KRNFile::instance()->batchSaveHighlights(batch);
    }
    KRNFile::instance()->kernoIds();
    settle();
}

double Screens::mouse(QEvent::Type type, const QPointF& point, Qt::MouseButtons buttons) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, point, point, m_window->mapToGlobal(point.toPoint()), button, buttons,
                      Qt::NoModifier);
    const double before = threadMilliseconds();
    QCoreApplication::sendEvent(m_window, &event);
    QQuickWindowPrivate::get(m_window)->polishItems();
    const double took = threadMilliseconds() - before;
    until([&, waited = 0]() mutable { return ++waited > 2; });
    return took;
}

void tell(const char* what, const Took& took) {
    std::printf("%-64s %6.0f ms, %6.0f ms of the main thread\n", what, took.elapsed, took.own);
    std::fflush(stdout);
}

void tell(const char* what, QList<double> steps) {
    std::sort(steps.begin(), steps.end());
    std::printf("%-64s %6.2f ms median, %.2f ms longest of %d\n", what, steps[steps.size() / 2], steps.last(),
                steps.size());
}

QPointF middle(QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
}

void measureOpening(Screens& screens) {
    screens.makeProject(text("thousand"), 1000, 1001);
    screens.open(text("empty"));
    settle();
    const auto allStand = [&] { return screens.shown("CircleParentKerno").size() >= 1000; };
    tell("open a project of 1,000 top-level kernos, to the last bubble",
         timeUntil([&] { screens.open(text("thousand")); }, allStand, "the canvas"));
    settle();
    const auto labelsStand = [&] { return screens.shown("TreeViewKerno").size() >= 1000; };
    tell("tree view of 1,000 kernos, to the last label",
         timeUntil([&] { screens.set(text("CentralManager.showAsTreeView = true")); }, labelsStand,
                   "the tree"));
    settle();
    tell("back to the canvas", timeUntil([&] { screens.set(text("CentralManager.showAsTreeView = false")); },
                                         allStand, "the canvas"));
}

void measureDragging(Screens& screens) {
    screens.makeProject(text("drag"), 220, 201);
    until([&] { return screens.shown("CircleKernoLevel0Delegate").size() >= 200; });
    settle();
    QList<QQuickItem*> bubbles = screens.shown("CircleKernoLevel0Delegate");
    std::reverse(bubbles.begin(), bubbles.end());
    const auto bubbleOf = [](QQuickItem* delegate) {
        return delegate->property("bubble").value<QQuickItem*>();
    };
    const QPointF from = middle(bubbleOf(bubbles.first()));
    screens.mouse(QEvent::MouseMove, from - QPointF(1, 0), Qt::NoButton);
    screens.mouse(QEvent::MouseMove, from, Qt::NoButton);
    screens.mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    QList<double> steps;
    for (int step = 0; step < 200; ++step)
        steps << screens.mouse(QEvent::MouseMove, from + QPointF(step % 100, step % 40 + step / 4),
                               Qt::LeftButton);
    tell("one step of a drag among 200 bubbles", steps);
    if (QLineF(middle(bubbleOf(bubbles.first())), from).length() < 20)
        std::puts("the bubble was not dragged");
    screens.mouse(QEvent::MouseButtonRelease, from, Qt::NoButton);
    settle();

    QQuickItem* parent = nullptr;
    for (QQuickItem* delegate : screens.shown("CircleKernoLevel0Delegate")) {
        if (delegate->property("kernoId").toInt() == 1)
            parent = bubbleOf(delegate);
    }
    QList<double> rings;
    for (int round = 0; round < 20; ++round) {
        screens.mouse(QEvent::MouseMove, QPointF(5, 300), Qt::NoButton);
        screens.mouse(QEvent::MouseMove, QPointF(6, 300), Qt::NoButton);
        QList<double> frames;
        for (int frame = 0; frame < 4; ++frame)
            frames << screens.mouse(QEvent::MouseMove, middle(parent) + QPointF(frame % 2, 0), Qt::NoButton);
        rings << *std::max_element(frames.cbegin(), frames.cend());
    }
    tell("a frame of opening a ring of 20 children", rings);
}

void measureOverlaps(Screens& screens) {
    screens.makeProject(text("overlaps"), 300, 301);
    screens.addHighlights(100000, 300);
    const auto bubblesStand = [&] {
        const QList<QQuickItem*> bubbles = screens.shown("KernoViewBubble");
        return bubbles.size() >= 300 && !screens.shown("SearchResultsItem").isEmpty();
    };
    tell("overlap view of 300 kernos with 100,000 highlights",
         timeUntil([&] { screens.set(text("CentralManager.showOverlapViewForKernoId = 7")); }, bubblesStand,
                   "the overlap view"));
    screens.set(text("CentralManager.switchToDefaultView()"));
    settle();
    const auto hierarchyStands = [&] { return !screens.shown("SearchResultsItem").isEmpty(); };
    tell("hierarchy view of a kerno with 333 quotes, to the first of them",
         timeUntil([&] { screens.set(text("CentralManager.showHierarchyViewForKerno = 7")); },
                   hierarchyStands, "the hierarchy"));
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    startup::prepare();
    KernovaApplication application(argc, argv);
    Session session(application, startup::setUp());
    Screens screens(session);
    if (!screens.start()) {
        std::fputs("The window or the service does not come.\n", stderr);
        return 1;
    }
    measureOpening(screens);
    measureDragging(screens);
    measureOverlaps(screens);
    KRNFile::instance()->closeAndReset();
    return 0;
}
