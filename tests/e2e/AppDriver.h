#pragma once

#include "tests_support/TestMain.h"

#include <QImage>
#include <QPointF>
#include <QQuickItem>

class QQuickWindow;
class QWidget;

/// Milliseconds that a person waits for what is bound to come. A busy machine with one core takes its time,
/// and a wait ends as soon as its condition holds: only what is broken takes so long.
constexpr int patienceMs = 60000;

/// Drives the windows of the running application as a person does: with the mouse and the keys, on what is
/// seen. Items are found by what a person reads on them, or by their object name. Everything runs on the main
/// thread, and every wait is bounded.
class AppDriver {
public:
    /// Screenshots go into `screenshotFolder`, numbered in the order in which they are taken; what was there
    /// goes.
    explicit AppDriver(const QString& screenshotFolder);

    /// Waits until `condition` holds; false after `milliseconds`.
    static bool waitFor(const std::function<bool()>& condition, int milliseconds = patienceMs);

    /// Lets events be handled until the windows have drawn what changed.
    void settle();

    /// The topmost visible and enabled item whose `text` (or `title`, or `placeholderText`) reads so; waits
    /// for it, and gives null when it doesn't come.
    QQuickItem* itemWithText(const QString& text, int milliseconds = patienceMs);
    /// Of a menu or a list that is open, where others may read the same.
    QQuickItem* entryWithText(const QString& text);

    /// The visible item of that object name, or null.
    QQuickItem* itemNamed(const QString& objectName, int milliseconds = patienceMs);

    /// All visible items of the QML type `typeName` (such as "CircleParentKerno"), or of one that is made of
    /// it.
    QList<QQuickItem*> itemsOfType(const QString& typeName) const;

    /// Whether a visible item reads so now.
    bool isShown(const QString& text);

    // Clicks and drags wait until what they are for stands still, and do nothing without it.

    bool click(QQuickItem* item, Qt::MouseButton button = Qt::LeftButton);
    bool clickAt(QQuickItem* item, const QPointF& position, Qt::MouseButton button = Qt::LeftButton);
    bool clickText(const QString& text, Qt::MouseButton button = Qt::LeftButton);
    bool doubleClick(QQuickItem* item);
    void hover(QQuickItem* item, const QPointF& position);
    /// Turns the wheel by so many notches, away from the person where positive.
    void turnWheel(QQuickItem* item, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Presses at `from`, moves in small steps to `to`, waits there for `ready`, and lets go; both in the
    /// items' own coordinates.
    void drag(QQuickItem* fromItem, const QPointF& from, QQuickItem* toItem, const QPointF& to,
              const std::function<bool()>& ready = {});

    /// Types into whatever has the focus.
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Clicks into a field, and once it has the keyboard replaces what it holds by `text`.
    bool fill(QQuickItem* field, const QString& text);

    /// Does `action`, and tries `answer` again and again until it gives true: for actions that open a dialog
    /// with an event loop of its own. False when the answer never succeeded.
    bool during(const std::function<void()>& action, const std::function<bool()>& answer);

    /// Answers the file dialog that is open with these files; false when none is open, it would take others,
    /// or it stays.
    bool chooseFiles(const QStringList& paths);

    /// Answers the message box that is open with the button that reads so; false when none is open.
    bool answerMessageBox(const QString& button);

    /// What the message box that is open tells; empty when none is open.
    QString messageBoxText() const;

    /// Whether a dialog that shows progress is seen; and presses its only button.
    bool progressIsShown() const;
    bool cancelProgress();

    /// Has files from outside hover over the middle of the window, and lets go of them there.
    void dragFilesOver(const QStringList& paths);
    void dropFiles(const QStringList& paths);

    /// Saves what is on the screen once nothing moves there any more, or at once, where something moves all
    /// the time or is gone soon; the path of the picture.
    QString screenshot(const QString& name);
    QString snapshot(const QString& name);

    /// What was done last, and what is on the screen now, for somebody who wasn't there.
    QString account() const;

    /// The visible window with the largest area.
    QQuickWindow* mainWindow() const;
    /// The others: menus and lists that are open.
    QList<QQuickWindow*> popups() const;

private:
    /// The whole screen, so that menus and dialogs, which are windows of their own, are in the picture. What
    /// still moves after a while is taken as it is.
    QImage stillScreen();
    QString save(const QImage& picture, const QString& name);
    QQuickItem* find(const std::function<bool(QQuickItem*)>& matches) const;
    void note(const QString& done);

    QString m_folder;
    int m_shots = 0;
    QStringList m_done;
};
