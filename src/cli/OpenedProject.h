#pragma once

#include "cli/Command.h"
#include "undo/UndoManager.h"

#include <QJsonObject>
#include <memory>

class KRNFile;

namespace cli {

/// A project file over a data service of its own, as the window has it, for one command. What `--author`,
/// `--password-file` and `--ignore-lock` say is heeded. Closes with the object.
class OpenedProject {
public:
    explicit OpenedProject(const Invocation& invocation);
    ~OpenedProject();

    /// Opens the project, with all its texts in memory. A project that is marked as open elsewhere is
    /// refused.
    Outcome open(const QString& path);
    /// Makes a project, and opens it. A file that is there is refused.
    Outcome create(const QString& path, bool singleQuestion);
    /// Reads the whole project without opening it, the mark of others heeded.
    Outcome read(const QString& path, QJsonObject* project);

    /// Waits until all changes are stored; a failure tells of the first that could not be.
    Outcome finish();

    KRNFile& file() { return *m_file; }
    UndoManager& undo() { return *m_undo; }

    // For work on projects that aren't opened.

    Outcome connectLink();
    /// Whether the file may be worked on.
    Outcome look(const QString& path);
    /// Empty when the invocation names no file.
    Outcome readPassword(QString* password) const;

private:
    Outcome openAs(const QString& path, bool createNew, bool singleQuestion);

    const Invocation& m_invocation;
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
    QString m_firstError;  ///< of those that came by signal
};

/// "The file ... is there already." unless it isn't, or `--force` is given.
Outcome mayWrite(const QString& path, const Invocation& invocation);

}  // namespace cli
