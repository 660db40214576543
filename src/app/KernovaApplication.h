#pragma once

#include <QApplication>

class AppHelper;

/// The application object. Files that the operating system asks the program to open reach QML through it.
class KernovaApplication : public QApplication {
    Q_OBJECT

public:
    KernovaApplication(int& argc, char** argv);
    /// Deletes what is still to be deleted later: items of closed screens need the application in their end.
    ~KernovaApplication() override;

    /// `appHelper` isn't owned; null, as at the start, when there is none.
    void setAppHelper(AppHelper* appHelper) { m_appHelper = appHelper; }

    bool event(QEvent* event) override;
    /// Has every message box show its text as it stands.
    bool notify(QObject* receiver, QEvent* event) override;

private:
    AppHelper* m_appHelper = nullptr;
};
