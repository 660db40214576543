#pragma once

#include "app/AppHelper.h"
#include "app/Incubation.h"
#include "app/OfflineAccess.h"
#include "app/TerminationSignals.h"
#include "merge/ProjectMerger.h"
#include "project/ModelInstantiator.h"
#include "undo/UndoManager.h"

#include <QQmlApplicationEngine>

class KernovaApplication;

/// The objects that QML talks to, and the engine with the screens, from the start of the screens to their
/// end. The project must exist and outlives the session. On destruction the project is closed first; then go
/// the engine and the objects, in the reverse order of their making. While it lives, SIGTERM and SIGINT quit
/// the application's event loop.
class Session {
public:
    /// Makes the objects and offers them to the engine; no screen is loaded yet.
    Session(KernovaApplication& application, KRNFile* krnFile);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Loads the screens. False when their root can't be made.
    bool load();

    AppHelper& appHelper() { return m_appHelper; }
    UndoManager& undoManager() { return m_undoManager; }
    QQmlApplicationEngine& engine() { return m_engine; }

private:
    KernovaApplication& m_application;
    KRNFile* m_krnFile;
    TerminationSignals m_termination;
    UndoManager m_undoManager;
    AppHelper m_appHelper;
    ModelInstantiator m_instantiator;
    ProjectMerger m_projectMerger;
    OfflineAccess m_access;
    Incubation m_incubation;
    QQmlApplicationEngine m_engine;
};
