#include "app/ProgressWindow.h"

namespace {

constexpr int momentMs = 500;
constexpr int steps = 1000;
constexpr int minimumWidth = 380;

}  // namespace

ProgressWindow::ProgressWindow(const QString& what)
    : m_dialog(what, QProgressDialog::tr("Cancel"), 0, steps) {
    m_dialog.setWindowModality(Qt::ApplicationModal);
    m_dialog.setMinimumWidth(minimumWidth);
    m_dialog.setMinimumDuration(momentMs);
    // Its begin, from which the moment counts.
    m_dialog.setValue(0);
}

Progress ProgressWindow::progress() {
    return [this](qint64 done, qint64 of) {
        // The last step would close it.
        m_dialog.setValue(of > 0 ? static_cast<int>(qMin(steps * done / of, qint64(steps - 1))) : 0);
        return !m_dialog.wasCanceled();
    };
}
