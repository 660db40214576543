#include "AppDriver.h"

#include <QApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QDir>
#include <QPixmap>
#include <QPointer>
#include <QQuickWindow>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

constexpr int pollMs = 10;
constexpr int heldUpMs = 2 * patienceMs;
constexpr int frameLimitMs = 10000;
constexpr int focusLimitMs = 20000;
constexpr int focusAgainMs = 500;
constexpr int stillLimitMs = 10000;
constexpr int dragSteps = 12;
constexpr int rememberedSteps = 8;
constexpr int toldTexts = 30;
constexpr int toldLength = 40;
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

void collect(QQuickItem* root, const std::function<bool(QQuickItem*)>& matches, QList<QQuickItem*>& found) {
    if (!root->isVisible())
        return;
    if (matches(root))
        found.append(root);
    const QList<QQuickItem*> children = root->childItems();
    for (QQuickItem* child : children)
        collect(child, matches, found);
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

// A window manager gives the focus to a window that is clicked; the bare display of the tests has none, and
// refuses it to a window that it hasn't shown yet.
void giveFocus(QWindow* window) {
    QElapsedTimer asked;
    AppDriver::waitFor(
        [&] {
            if (QGuiApplication::focusWindow() == window)
                return true;
            if (window->isExposed() && (!asked.isValid() || asked.hasExpired(focusAgainMs))) {
                window->requestActivate();
                asked.start();
            }
            return false;
        },
        focusLimitMs);
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

void awaitFrame(QQuickWindow* window) {
    // Counted in an object of its own: a frame drawn by the render thread may be reported after the wait.
    const auto drawn = std::make_shared<bool>(false);
    const auto connection =
        QObject::connect(window, &QQuickWindow::frameSwapped, window, [drawn] { *drawn = true; });
    const QPointer<QQuickWindow> guard(window);
    window->update();
    AppDriver::waitFor([&] { return *drawn || !guard || !guard->isVisible(); }, frameLimitMs);
    QObject::disconnect(connection);
}

// Waits until the item is where it was a frame before; false when it goes away.
bool untilStill(const QPointer<QQuickItem>& item) {
    QRectF before;
    return AppDriver::waitFor([&] {
               if (!item || !item->window())
                   return true;
               const QRectF now =
                   item->mapRectToScene(item->boundingRect()).translated(item->window()->position());
               const bool still = now == before && item->window()->isExposed();
               before = now;
               if (!still)
                   awaitFrame(item->window());
               return still;
           }) &&
           item && item->window();
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

QImage screen() {
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

}  // namespace

AppDriver::AppDriver(const QString& screenshotFolder) : m_folder(screenshotFolder) {
    QDir(m_folder).removeRecursively();
    QDir().mkpath(m_folder);
}

bool AppDriver::waitFor(const std::function<bool()>& condition, int milliseconds) {
    if (condition())
        return true;
    if (milliseconds <= 0)
        return false;
    // A dialog that has come up in an event loop of its own meanwhile would hold the innermost wait for ever.
    static int depth = 0;
    const int own = ++depth;
    QTimer overdue;
    QObject::connect(&overdue, &QTimer::timeout, [own] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (depth != own || !dialog)
            return;
        std::fprintf(stderr, "%s holds up a wait and is closed\n", dialog->metaObject()->className());
        dialog->close();
    });
    overdue.start(milliseconds + heldUpMs);
    QDeadlineTimer deadline(milliseconds);
    bool holds = false;
    do {
        QTest::qWait(pollMs);
        holds = condition();
    } while (!holds && !deadline.hasExpired());
    --depth;
    return holds;
}

void AppDriver::settle() {
    for (int frame = 0; frame < 2; ++frame) {
        if (QQuickWindow* window = mainWindow())
            awaitFrame(window);
    }
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

QQuickItem* AppDriver::entryWithText(const QString& text) {
    QQuickItem* found = nullptr;
    waitFor([&] {
        for (QQuickWindow* popup : popups()) {
            found = search(popup->contentItem(),
                           [&](QQuickItem* item) { return canBeClicked(item) && reads(item, text); });
            if (found)
                return true;
        }
        return false;
    });
    return found;
}

QQuickItem* AppDriver::itemNamed(const QString& objectName, int milliseconds) {
    QQuickItem* found = nullptr;
    waitFor(
        [&] { return (found = find([&](QQuickItem* item) { return item->objectName() == objectName; })); },
        milliseconds);
    return found;
}

QList<QQuickItem*> AppDriver::itemsOfType(const QString& typeName) const {
    QList<QQuickItem*> found;
    const QList<QQuickWindow*> windows = shownWindows();
    for (QQuickWindow* window : windows)
        collect(
            window->contentItem(), [&](QQuickItem* item) { return isOfType(item, typeName); }, found);
    return found;
}

bool AppDriver::isShown(const QString& text) {
    return find([&](QQuickItem* item) { return item->isVisible() && reads(item, text); });
}

bool AppDriver::clickAt(QQuickItem* item, const QPointF& position, Qt::MouseButton button) {
    if (!item || !untilStill(item))
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
    note("click \"%1\""_s.arg(text));
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
    if (!item || !item->window())
        return;
    movePointer(item->window(), item->mapToScene(position).toPoint());
    settle();
}

void AppDriver::drag(QQuickItem* fromItem, const QPointF& from, QQuickItem* toItem, const QPointF& to,
                     const std::function<bool()>& ready) {
    if (!fromItem || !toItem || !untilStill(fromItem) || !untilStill(toItem))
        return;
    note("drag"_s);
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
    if (ready)
        waitFor(ready);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, end.toPoint() + QPoint(1, 0));
    settle();
}

void AppDriver::type(const QString& text) {
    note("type \"%1\""_s.arg(text));
    QWindow* const window = keyWindow(mainWindow());
    const QStringList letters = lettersOf(text);
    for (const QString& letter : letters)
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, Qt::NoModifier);
    settle();
}

void AppDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    note("press "_s + QKeySequence(static_cast<int>(key) + static_cast<int>(modifiers)).toString());
    const QPointer<QWindow> window = keyWindow(mainWindow());
    QTest::keyPress(window, key, modifiers);
    // A menu may be gone by then, and its window with it.
    QTest::keyRelease(window ? window.data() : mainWindow(), key, modifiers);
    settle();
}

bool AppDriver::fill(QQuickItem* field, const QString& text) {
    const auto hasKeyboard = [field] {
        const QQuickItem* focused = field->window() ? field->window()->activeFocusItem() : nullptr;
        return focused && (focused == field || field->isAncestorOf(focused));
    };
    if (!click(field) || !waitFor(hasKeyboard))
        return false;
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    type(text);
    return true;
}

QImage AppDriver::stillScreen() {
    QDeadlineTimer deadline(stillLimitMs);
    settle();
    QImage before = screen();
    for (;;) {
        settle();
        const QImage after = screen();
        if (after == before || deadline.hasExpired())
            return after;
        before = after;
    }
}

QString AppDriver::save(const QImage& picture, const QString& name) {
    const QString path = "%1/%2-%3.png"_s.arg(m_folder).arg(++m_shots, 2, 10, QLatin1Char('0')).arg(name);
    picture.save(path, "PNG", quickCompression);
    return path;
}

QString AppDriver::screenshot(const QString& name) {
    return save(stillScreen(), name);
}

QString AppDriver::snapshot(const QString& name) {
    return save(screen(), name);
}

void AppDriver::note(const QString& done) {
    m_done.append(done);
    if (m_done.size() > rememberedSteps)
        m_done.removeFirst();
}

QString AppDriver::account() const {
    QStringList seen;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const QWidget* widget : widgets) {
        if (widget->isVisible())
            seen << QString::fromLatin1(widget->metaObject()->className()) + ' ' + widget->windowTitle() +
                        ' ' + widget->property("text").toString();
    }
    // What lies above the window, else the window.
    QList<QQuickItem*> texts;
    const auto isText = [](QQuickItem* item) {
        return item->inherits("QQuickText") && !item->property("text").toString().trimmed().isEmpty();
    };
    for (QQuickWindow* popup : popups())
        collect(popup->contentItem(), isText, texts);
    for (QQuickItem* dialog : itemsOfType("DialogPanel"_s))
        collect(dialog, isText, texts);
    if (texts.isEmpty() && mainWindow())
        collect(mainWindow()->contentItem(), isText, texts);
    for (const QQuickItem* text : texts.mid(0, toldTexts))
        seen << '"' + text->property("text").toString().simplified().left(toldLength) + '"';
    return "done last: %1; on the screen: %2"_s.arg(m_done.join(", "_s), seen.join(", "_s));
}
