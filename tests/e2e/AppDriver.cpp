#include "AppDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QQuickWindow>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <memory>

namespace {

constexpr int pollMs = 10;
constexpr int attemptMs = 50;
constexpr int frameLimitMs = 2000;
constexpr int focusLimitMs = 2000;
constexpr int stillLimitMs = 2000;
constexpr int dragSteps = 12;
constexpr int quickCompression = 85;

bool canBeClicked(const QQuickItem* item) {
    return item->isVisible() && item->isEnabled() && item->opacity() > 0.01 && item->width() > 0 &&
           item->height() > 0;
}

bool reads(const QQuickItem* item, const QString& text) {
    for (const char* property : {"text", "title", "placeholderText"}) {
        QString shown = item->property(property).toString();
        if (shown.isEmpty())
            continue;
        if (shown == text || shown.remove(QLatin1Char('&')) == text)
            return true;
    }
    return false;
}

// Items that lie above others come first, as a person would hit them. What fades out still takes the mouse
// until nothing is left of it.
QQuickItem* search(QQuickItem* root, const std::function<bool(QQuickItem*)>& matches) {
    if (!root->isVisible() || root->opacity() <= 0)
        return nullptr;
    QList<QQuickItem*> children = root->childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem* a, const QQuickItem* b) { return a->z() < b->z(); });
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        if (QQuickItem* found = search(*child, matches))
            return found;
    }
    return matches(root) ? root : nullptr;
}

// QML appends a number to the name of its type.
bool isOfType(const QQuickItem* item, const QString& typeName) {
    for (const QMetaObject* type = item->metaObject(); type; type = type->superClass()) {
        if (QString::fromLatin1(type->className()).startsWith(typeName + QLatin1Char('_')))
            return true;
    }
    return false;
}

void collect(QQuickItem* root, const QString& typeName, QList<QQuickItem*>& found) {
    if (!root->isVisible())
        return;
    if (isOfType(root, typeName))
        found.append(root);
    const QList<QQuickItem*> children = root->childItems();
    for (QQuickItem* child : children)
        collect(child, typeName, found);
}

int areaOf(const QWindow* window) {
    return window->width() * window->height();
}

// Menus and lists lie above the window that they belong to, and are smaller.
QList<QQuickWindow*> shownWindows() {
    QList<QQuickWindow*> windows;
    const QWindowList all = QGuiApplication::allWindows();
    for (QWindow* window : all) {
        auto* quick = qobject_cast<QQuickWindow*>(window);
        if (quick && quick->isVisible())
            windows.append(quick);
    }
    std::sort(windows.begin(), windows.end(),
              [](const QWindow* a, const QWindow* b) { return areaOf(a) < areaOf(b); });
    return windows;
}

QWidget* openDialog(const char* className) {
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (widget->isVisible() && widget->inherits(className))
            return widget;
    }
    return nullptr;
}

// A window manager gives the focus to a window that is clicked; the bare display of the tests has none.
void giveFocus(QWindow* window) {
    if (QGuiApplication::focusWindow() != window) {
        // The display refuses the focus to a window that it hasn't shown yet.
        AppDriver::waitFor([window] { return window->isExposed(); }, focusLimitMs);
        window->requestActivate();
        AppDriver::waitFor([window] { return QGuiApplication::focusWindow() == window; }, focusLimitMs);
    }
    // When a dialog closes, this display may give the focus back without a word to the window.
    const auto* const scene = qobject_cast<QQuickWindow*>(window);
    if (scene && QGuiApplication::focusWindow() == window && !scene->contentItem()->hasFocus()) {
        QFocusEvent focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
        QCoreApplication::sendEvent(window, &focus);
    }
}

// A window that has just been closed may still hold the focus.
QWindow* keyWindow(QWindow* mainWindow) {
    QWindow* const focused = QGuiApplication::focusWindow();
    QWindow* const window = focused && focused->isVisible() ? focused : mainWindow;
    giveFocus(window);
    return window;
}

// Moves the pointer of the display, too: menus open where it is. It arrives in two steps, as the first only
// enters what lies there.
void movePointer(QWindow* window, const QPoint& point) {
    QCursor::setPos(window->mapToGlobal(point));
    QTest::mouseMove(window, point - QPoint(1, 0));
    QTest::mouseMove(window, point);
    QTest::qWait(pollMs);
}

// What one press of a key gives each: a letter beyond the basic plane is two units of the text.
QStringList lettersOf(const QString& text) {
    QStringList letters;
    for (const QChar unit : text) {
        if (unit.isLowSurrogate() && !letters.isEmpty())
            letters.last().append(unit);
        else
            letters.append(unit);
    }
    return letters;
}

std::unique_ptr<QMimeData> filesAsData(const QStringList& paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << QUrl::fromLocalFile(path);
    data->setUrls(urls);
    return data;
}

}  // namespace

AppDriver::AppDriver(const QString& screenshotFolder) : m_folder(screenshotFolder) {
    QDir(m_folder).removeRecursively();
    QDir().mkpath(m_folder);
}

bool AppDriver::waitFor(const std::function<bool()>& condition, int milliseconds) {
    QDeadlineTimer deadline(milliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QTest::qWait(pollMs);
    }
    return true;
}

void AppDriver::settle() {
    QQuickWindow* window = mainWindow();
    if (!window)
        return;
    // Counted in an object of its own: a frame drawn by the render thread may be reported after the wait.
    const auto frames = std::make_shared<int>(0);
    const auto connection =
        QObject::connect(window, &QQuickWindow::frameSwapped, window, [frames] { ++*frames; });
    for (int wanted = 1; wanted <= 2; ++wanted) {
        window->update();
        waitFor([&] { return *frames >= wanted; }, frameLimitMs);
    }
    QObject::disconnect(connection);
}

QQuickWindow* AppDriver::mainWindow() const {
    const QList<QQuickWindow*> windows = shownWindows();
    return windows.isEmpty() ? nullptr : windows.last();
}

QList<QQuickWindow*> AppDriver::popups() const {
    QList<QQuickWindow*> windows = shownWindows();
    if (!windows.isEmpty())
        windows.removeLast();
    return windows;
}

QQuickItem* AppDriver::find(const std::function<bool(QQuickItem*)>& matches) const {
    const QList<QQuickWindow*> windows = shownWindows();
    for (QQuickWindow* window : windows) {
        if (QQuickItem* found = search(window->contentItem(), matches))
            return found;
    }
    return nullptr;
}

QQuickItem* AppDriver::itemWithText(const QString& text, int milliseconds) {
    QQuickItem* found = nullptr;
    waitFor(
        [&] {
            return (found = find([&](QQuickItem* item) { return canBeClicked(item) && reads(item, text); }));
        },
        milliseconds);
    return found;
}

QQuickItem* AppDriver::itemNamed(const QString& objectName, int milliseconds) {
    QQuickItem* found = nullptr;
    waitFor(
        [&] { return (found = find([&](QQuickItem* item) { return item->objectName() == objectName; })); },
        milliseconds);
    return found;
}

QList<QQuickItem*> AppDriver::itemsOfType(const QString& typeName) {
    QList<QQuickItem*> found;
    const QList<QQuickWindow*> windows = shownWindows();
    for (QQuickWindow* window : windows)
        collect(window->contentItem(), typeName, found);
    return found;
}

bool AppDriver::isShown(const QString& text) {
    return find([&](QQuickItem* item) { return item->isVisible() && reads(item, text); });
}

bool AppDriver::clickAt(QQuickItem* item, const QPointF& position, Qt::MouseButton button) {
    if (!item)
        return false;
    const QPoint point = item->mapToScene(position).toPoint();
    movePointer(item->window(), point);
    if (item->window() == mainWindow())
        giveFocus(item->window());
    QTest::mouseClick(item->window(), button, Qt::NoModifier, point);
    settle();
    return true;
}

bool AppDriver::click(QQuickItem* item, Qt::MouseButton button) {
    return item && clickAt(item, QPointF(item->width() / 2, item->height() / 2), button);
}

bool AppDriver::clickText(const QString& text, Qt::MouseButton button) {
    return click(itemWithText(text), button);
}

bool AppDriver::doubleClick(QQuickItem* item) {
    if (!click(item))
        return false;
    const QPointF centre(item->width() / 2, item->height() / 2);
    QTest::mouseDClick(item->window(), Qt::LeftButton, Qt::NoModifier, item->mapToScene(centre).toPoint());
    settle();
    return true;
}

void AppDriver::turnWheel(QQuickItem* item, int notches, Qt::KeyboardModifiers modifiers) {
    const QPointF at = item->mapToScene(QPointF(item->width() / 2, 20));
    QWheelEvent event(at, item->window()->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, 120 * notches),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(item->window(), &event);
    settle();
}

void AppDriver::hover(QQuickItem* item, const QPointF& position) {
    movePointer(item->window(), item->mapToScene(position).toPoint());
    settle();
}

void AppDriver::drag(QQuickItem* fromItem, const QPointF& from, QQuickItem* toItem, const QPointF& to) {
    QQuickWindow* window = fromItem->window();
    const QPointF start = fromItem->mapToScene(from);
    const QPointF end = toItem->mapToScene(to);
    movePointer(window, start.toPoint());
    settle();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, start.toPoint());
    for (int step = 1; step <= dragSteps; ++step) {
        const QPointF point = start + (end - start) * step / dragSteps;
        QTest::mouseMove(window, point.toPoint());
        QTest::qWait(pollMs);
    }
    QTest::mouseMove(window, end.toPoint() + QPoint(1, 0));
    settle();
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, end.toPoint() + QPoint(1, 0));
    settle();
}

void AppDriver::type(const QString& text) {
    QWindow* const window = keyWindow(mainWindow());
    const QStringList letters = lettersOf(text);
    for (const QString& letter : letters)
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, Qt::NoModifier);
    settle();
}

void AppDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWindow> window = keyWindow(mainWindow());
    QTest::keyPress(window, key, modifiers);
    // A menu may be gone by then, and its window with it.
    QTest::keyRelease(window ? window.data() : mainWindow(), key, modifiers);
    settle();
}

bool AppDriver::fill(QQuickItem* field, const QString& text) {
    if (!click(field))
        return false;
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    type(text);
    return true;
}

bool AppDriver::during(const std::function<void()>& action, const std::function<bool()>& answer,
                       int milliseconds) {
    bool answered = false;
    QTimer attempts;
    QDeadlineTimer deadline(milliseconds);
    QObject::connect(&attempts, &QTimer::timeout, [&] {
        attempts.stop();
        answered = answer();
        if (answered)
            return;
        if (deadline.hasExpired() && QApplication::activeModalWidget()) {
            // Nothing else would end the loop of a dialog that waits for an answer.
            screenshot(QStringLiteral("unanswered"));
            QApplication::activeModalWidget()->close();
        }
        attempts.start();
    });
    attempts.start(attemptMs);
    action();
    return waitFor([&] { return answered; }, milliseconds);
}

bool AppDriver::chooseFiles(const QStringList& paths) {
    const QPointer<QFileDialog> dialog = qobject_cast<QFileDialog*>(openDialog("QFileDialog"));
    auto* name = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
    if (!name)
        return false;
    QStringList quoted;
    for (const QString& path : paths)
        quoted << (paths.size() > 1 ? QStringLiteral("\"%1\"").arg(path) : path);
    // Typing would open a list of proposals, which takes Return for itself.
    name->setFocus();
    name->setText(quoted.join(QLatin1Char(' ')));
    QTest::keyClick(name, Qt::Key_Return);
    // A dialog that isn't ready for the keys stays, and is answered again.
    return !dialog || !dialog->isVisible();
}

bool AppDriver::answerMessageBox(const QString& button) {
    auto* box = qobject_cast<QMessageBox*>(openDialog("QMessageBox"));
    const QList<QAbstractButton*> buttons = box ? box->buttons() : QList<QAbstractButton*>();
    for (QAbstractButton* candidate : buttons) {
        if (candidate->text().remove(QLatin1Char('&')) == button) {
            QTest::mouseClick(candidate, Qt::LeftButton);
            return true;
        }
    }
    return false;
}

QString AppDriver::messageBoxText() const {
    auto* box = qobject_cast<QMessageBox*>(openDialog("QMessageBox"));
    return box ? box->text() : QString();
}

bool AppDriver::progressIsShown() const {
    return openDialog("QProgressDialog");
}

bool AppDriver::cancelProgress() {
    QWidget* dialog = openDialog("QProgressDialog");
    auto* button = dialog ? dialog->findChild<QAbstractButton*>() : nullptr;
    if (button)
        QTest::mouseClick(button, Qt::LeftButton);
    return button;
}

void AppDriver::dragFilesOver(const QStringList& paths) {
    QQuickWindow* window = mainWindow();
    const QPoint middle(window->width() / 2, window->height() / 2);
    const std::unique_ptr<QMimeData> data = filesAsData(paths);
    QDragEnterEvent enter(middle, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDragMoveEvent move(middle, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
    settle();
}

void AppDriver::dropFiles(const QStringList& paths) {
    dragFilesOver(paths);
    QQuickWindow* window = mainWindow();
    const std::unique_ptr<QMimeData> data = filesAsData(paths);
    QDropEvent drop(QPointF(window->width() / 2.0, window->height() / 2.0), Qt::CopyAction, data.get(),
                    Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
    settle();
}

QImage AppDriver::stillScreen() {
    const auto grab = [] { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); };
    QDeadlineTimer deadline(stillLimitMs);
    settle();
    QImage before = grab();
    for (;;) {
        settle();
        const QImage after = grab();
        if (after == before || deadline.hasExpired())
            return after;
        before = after;
    }
}

QString AppDriver::screenshot(const QString& name) {
    const QString path =
        QStringLiteral("%1/%2-%3.png").arg(m_folder).arg(++m_shots, 2, 10, QLatin1Char('0')).arg(name);
    stillScreen().save(path, "PNG", quickCompression);
    return path;
}
