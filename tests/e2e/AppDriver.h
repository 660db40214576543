#pragma once

#include <QImage>
#include <QPointF>
#include <QQuickItem>
#include <QString>
#include <functional>

class QQuickWindow;
class QWidget;

/// Drives the windows of the running application as a person does: with the mouse and the keys, on what is
/// seen. Items are found by what a person reads on them, or by their object name. Everything runs on the main
/// thread, and every wait is bounded.
class AppDriver {
public:
    /// Screenshots go into `screenshotFolder`, numbered in the order in which they are taken; what was there
    /// goes.
    explicit AppDriver(const QString& screenshotFolder);

    /// Waits until `condition` holds; false after `milliseconds`.
    static bool waitFor(const std::function<bool()>& condition, int milliseconds = 15000);

    /// Lets events be handled until the windows have drawn what changed.
    void settle();

    /// The topmost visible and enabled item whose `text` (or `title`, or `placeholderText`) reads so; waits
    /// for it, and gives null when it doesn't come.
    QQuickItem* itemWithText(const QString& text, int milliseconds = 15000);

    /// The visible item of that object name, or null.
    QQuickItem* itemNamed(const QString& objectName, int milliseconds = 15000);

    /// All visible items of the QML type `typeName` (such as "CircleParentKerno"), or of one that is made of
    /// it.
    QList<QQuickItem*> itemsOfType(const QString& typeName);

    /// Whether a visible item reads so now.
    bool isShown(const QString& text);

    bool click(QQuickItem* item, Qt::MouseButton button = Qt::LeftButton);
    bool clickAt(QQuickItem* item, const QPointF& position, Qt::MouseButton button = Qt::LeftButton);
    bool clickText(const QString& text, Qt::MouseButton button = Qt::LeftButton);
    bool doubleClick(QQuickItem* item);
    void hover(QQuickItem* item, const QPointF& position);
    /// Turns the wheel by so many notches, away from the person where positive.
    void turnWheel(QQuickItem* item, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Presses at `from`, moves in small steps to `to`, and lets go; both in the items' own coordinates.
    void drag(QQuickItem* fromItem, const QPointF& from, QQuickItem* toItem, const QPointF& to);

    /// Types into whatever has the focus.
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Clicks into a field, replaces what it holds and types `text`.
    bool fill(QQuickItem* field, const QString& text);

    /// Does `action`, and tries `answer` again and again until it gives true: for actions that open a dialog
    /// with an event loop of its own. False when the answer never succeeded.
    bool during(const std::function<void()>& action, const std::function<bool()>& answer,
                int milliseconds = 15000);

    /// Answers the file dialog that is open with these files; false when none is open or it stays.
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

    /// Saves what is on the screen once nothing moves there any more; the path of the picture.
    QString screenshot(const QString& name);

    /// The visible window with the largest area.
    QQuickWindow* mainWindow() const;
    /// The others: menus and lists that are open.
    QList<QQuickWindow*> popups() const;

private:
    /// The whole screen, so that menus and dialogs, which are windows of their own, are in the picture. What
    /// still moves after a while is taken as it is.
    QImage stillScreen();
    QQuickItem* find(const std::function<bool(QQuickItem*)>& matches) const;

    QString m_folder;
    int m_shots = 0;
};
