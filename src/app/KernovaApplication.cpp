#include "app/KernovaApplication.h"

#include "app/AppHelper.h"

#include <QFileOpenEvent>
#include <QMessageBox>

namespace {

constexpr int flags = QT_VERSION_CHECK(5, 9, 4);

}  // namespace

KernovaApplication::KernovaApplication(int& argc, char** argv) : QApplication(argc, argv, flags) {}

KernovaApplication::~KernovaApplication() {
    sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool KernovaApplication::notify(QObject* receiver, QEvent* event) {
    // Titles and messages stand in message boxes, and a box takes a text with a "<" for mark-up.
    if (event->type() == QEvent::Polish) {
        if (auto* box = qobject_cast<QMessageBox*>(receiver))
            box->setTextFormat(Qt::PlainText);
    }
    return QApplication::notify(receiver, event);
}

bool KernovaApplication::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen && m_appHelper)
        m_appHelper->setUserInvokedFile(static_cast<QFileOpenEvent*>(event)->file());
    return QApplication::event(event);
}
