#include "app/KernovaApplication.h"

#include "app/AppHelper.h"

#include <QFileOpenEvent>

namespace {

constexpr int flags = QT_VERSION_CHECK(5, 9, 4);

}  // namespace

KernovaApplication::KernovaApplication(int& argc, char** argv) : QApplication(argc, argv, flags) {}

KernovaApplication::~KernovaApplication() {
    sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool KernovaApplication::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen && m_appHelper)
        m_appHelper->setUserInvokedFile(static_cast<QFileOpenEvent*>(event)->file());
    return QApplication::event(event);
}
