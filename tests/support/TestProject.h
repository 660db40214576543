#pragma once

#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "undo/UndoManager.h"

/// A project at the real service without pauses, and the manager of its changes: for tests whose room may use
/// them.
class TestProject {
public:
    TestProject() : file(nullptr, ProjectTimings{0, 0}), undo(&file) { file.initModels(); }
    ~TestProject() { file.closeAndReset(); }

    QTemporaryDir folder;
    KRNFile file;
    UndoManager undo;

    QString path(const QString& name) const { return folder.filePath(name); }
    QJsonObject project(const QString& name) const { return {{"name"_s, path(name)}}; }

    /// Opens a project of that name, connecting first. The failure in words, or empty.
    QString open(const QString& name, bool createNew, bool singleQuestion = true,
                 const QString& password = {}) {
        if (!file.dataHelper()->connection()->isConnected() &&
            !file.dataHelper()->connection()->connect(false))
            return file.dataHelper()->connection()->lastError();
        undo.clearStack();
        return file.openProject(project(name), createNew, password, singleQuestion, true)
                   ? QString()
                   : "does not open: "_s + file.getLastOpenError();
    }

    /// Everything that was sent has been stored, and its notifications have come.
    void settle() {
        file.getPreference("none"_s);
        QCoreApplication::processEvents();
    }
};
