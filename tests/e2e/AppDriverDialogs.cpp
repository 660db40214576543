#include "AppDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QQuickWindow>
#include <QTest>
#include <QTimer>
#include <memory>

namespace {

constexpr int attemptMs = 50;
constexpr int longestAnswer = 4;  // times the patience

QWidget* openDialog(const char* className) {
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (widget->isVisible() && widget->inherits(className))
            return widget;
    }
    return nullptr;
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

bool AppDriver::during(const std::function<void()>& action, const std::function<bool()>& answer) {
    bool answered = false;
    bool gaveUp = false;
    // Nothing else would end the loop of a dialog that waits for an answer.
    const auto giveUp = [&] {
        if (!gaveUp) {
            snapshot("unanswered"_s);
            note("give up the answer, while there was: "_s + account());
        }
        gaveUp = true;
        if (QWidget* dialog = QApplication::activeModalWidget())
            dialog->close();
    };
    QTimer attempts;
    QDeadlineTimer deadline(patienceMs);
    QObject::connect(&attempts, &QTimer::timeout, [&] {
        attempts.stop();
        answered = answered || (!gaveUp && answer());
        if (!answered && deadline.hasExpired())
            giveUp();
        if (!answered)
            attempts.start();
    });
    // Of its own, as the answer itself may have led into the event loop of another dialog.
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, giveUp);
    attempts.start(attemptMs);
    limit.start(longestAnswer * patienceMs);
    action();
    return waitFor([&] { return answered || gaveUp; }) && answered;
}

bool AppDriver::chooseFiles(const QStringList& paths) {
    const QPointer<QFileDialog> dialog = qobject_cast<QFileDialog*>(openDialog("QFileDialog"));
    auto* name = dialog ? dialog->findChild<QLineEdit*>("fileNameEdit"_s) : nullptr;
    if (!name)
        return false;
    QStringList quoted;
    for (const QString& path : paths)
        quoted << (paths.size() > 1 ? "\"%1\""_s.arg(path) : path);
    // Typing would open a list of proposals, which takes Return for itself.
    name->setFocus();
    name->setText(quoted.join(QLatin1Char(' ')));
    // While the folder is read, its first row takes the place of what was written.
    const QString chosen = QDir::cleanPath(dialog->selectedFiles().value(0));
    if (!chosen.startsWith(QDir::cleanPath(paths.value(0))))
        return false;
    QTest::keyClick(name, Qt::Key_Return);
    // A dialog that isn't ready for the keys stays, and is answered again.
    const bool taken = !dialog || !dialog->isVisible();
    if (taken)
        note("choose "_s + quoted.join(QLatin1Char(' ')));
    return taken;
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
