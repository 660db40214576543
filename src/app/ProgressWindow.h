#pragma once

#include "project/Progress.h"

#include <QProgressDialog>

/// A window that shows how far long work is, and lets the user end it. It comes up by itself when the work
/// takes longer than a moment, and then takes all input, so that nothing else begins meanwhile. Goes with the
/// object.
class ProgressWindow {
public:
    explicit ProgressWindow(const QString& what);

    /// Valid as long as the window lives.
    Progress progress();

private:
    QProgressDialog m_dialog;
};
