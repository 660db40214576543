#pragma once

#include "Pulse.h"
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
#include <functional>
#include <private/qquickwindow_p.h>

// The real window with the real service beside it, for what measures screens. It needs a display.

constexpr int bound = 120000;  // ms
constexpr int questionLength = 20000;
constexpr int batchSize = 5000;

inline const QString author = QStringLiteral("Ann Author");

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// Handles events until the condition holds; false when it doesn't come.
inline bool until(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    // Waiting must not count as work of the thread.
    QTimer tick;
    tick.start(1);
    while (!condition()) {
        if (timer.elapsed() > bound)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

inline void settle() {
    QElapsedTimer timer;
    timer.start();
    until([&] { return timer.elapsed() > 600; });
}

struct Took {
    double elapsed;
    double own;  ///< of the main thread
};

inline Took timeUntil(const std::function<void()>& work, const std::function<bool()>& condition,
                      const char* what) {
    QElapsedTimer timer;
    timer.start();
    const double before = threadMilliseconds();
    work();
    if (!until(condition))
        std::printf("%s does not come\n", what);
    return {static_cast<double>(timer.elapsed()), threadMilliseconds() - before};
}

inline void collect(QQuickItem* root, const QString& type, QList<QQuickItem*>& found) {
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

inline bool Screens::start() {
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
    m_window->setProperty("showFirstTimeIntro", false);
    set(text("CentralManager.cloud = false; CentralManager.showLogin = false"));
    return true;
}

inline void Screens::set(const QString& expression) {
    const QList<QQuickItem*> screens = shown("MainScreen");
    QQuickItem* const item = screens.value(0, m_window->contentItem());
    QQmlExpression evaluation(qmlContext(item), item, expression);
    evaluation.evaluate();
    if (evaluation.hasError())
        std::printf("%s\n", qPrintable(evaluation.error().toString()));
}

inline QList<QQuickItem*> Screens::shown(const char* type) const {
    QList<QQuickItem*> found;
    collect(m_window->contentItem(), QString::fromLatin1(type), found);
    return found;
}

inline void Screens::open(const QString& name) {
    const QString path = m_folder.filePath(name + text(".krn"));
    set(text("CentralManager.openProject({ name: '%1' }, '', %2, true, true)")
            .arg(path, QFile::exists(path) ? text("false") : text("true")));
    if (!KRNFile::instance()->isOpened())
        std::printf("%s does not open\n", qPrintable(path));
}

inline void Screens::makeProject(const QString& name, int kernos, int childrenFrom) {
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

inline void Screens::addHighlights(int count, int kernos) {
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

inline double Screens::mouse(QEvent::Type type, const QPointF& point, Qt::MouseButtons buttons) {
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

inline void tell(const char* what, const Took& took) {
    std::printf("%-64s %6.0f ms, %6.0f ms of the main thread\n", what, took.elapsed, took.own);
    std::fflush(stdout);
}

inline void tell(const char* what, QList<double> steps) {
    std::sort(steps.begin(), steps.end());
    std::printf("%-64s %6.2f ms median, %.2f ms longest of %d\n", what, steps[steps.size() / 2], steps.last(),
                steps.size());
}
