#include "Job.h"

#include "project/KRNFile.h"

#include <QFile>
#include <QQuickWindow>

namespace {

const QString plainRun = "plain"_s;
const QString protectedRun = "protected"_s;
const QString password = "Öffne dich"_s;
const QString text = "What was said in the yard, by those who came.\n"_s;
const QString exportSources = "Export Project (Sources Only)"_s;
const QString exportStructure = "Export Project (Structure Only)"_s;

/// Saves a project under another name, and makes projects of its sources and of its structure: from the
/// menus, and opened again from the open dialog.
class CopiesJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        const bool isProtected = run == protectedRun;
        const QString word = isProtected ? password : QString();
        const QString file = path(run + ".krn"_s);
        const QString copy = path("copy.krn"_s);
        const QString sources = path(run + "-sources.krn"_s);
        const QString structure = path(run + "-structure.krn"_s);
        if (!signIn() || !click("New Project"_s) || !shown("Structured Questions"_s))
            return false;
        if (isProtected && (!flip(0) || !fillField(1, password) || !fillField(2, password)))
            return false;
        if (!fill("author"_s, "Ada Berger"_s) || !chooseProject("New Project"_s, file) || !untilOpen() ||
            !codePassage(text, "in the yard"_s) || (!isProtected && !saveAs(copy)))
            return false;
        const QString current = isProtected ? file : copy;
        return exportPart(exportSources, sources) && exportPart(exportStructure, structure) &&
               holds(current, 1, 1, 1) && open(sources, word) && holds(sources, 1, 0, 0) && reads(text) &&
               shoot("sources"_s) && open(structure, word) && holds(structure, 0, 1, 0) &&
               untilBubble("Belonging"_s) && shoot("structure"_s) && open(file, word) && holds(file, 1, 1, 1);
    }

private:
    bool saveAs(const QString& file) {
        return click("Project"_s) && shown("Save As..."_s) && shoot("project-menu"_s) &&
               chooseProject("Save As..."_s, file) &&
               until([&] { return m_driver.mainWindow()->title().endsWith(file); },
                     "the copy is not open, or the title does not say so"_s) &&
               gone("Author:"_s) && holds(file, 1, 1, 1) && shoot("saved-as"_s);
    }

    bool exportPart(const QString& entry, const QString& file) {
        return click("Export"_s) && shown(entry) && shoot("export-menu"_s) && chooseProject(entry, file) &&
               until([&] { return QFile::exists(file); }, "no file comes of "_s + entry);
    }

    // Opens a project from the open dialog, over the one that is open.
    bool open(const QString& file, const QString& word = {}) {
        return showOpenDialog() && chooseProject("Open Other..."_s, file) &&
               (word.isEmpty() || (shown("Password required"_s) && fillField(0, word) && click("OK"_s))) &&
               untilIs("open is"_s, file, [&] { return currentName(); }) && untilOpen() &&
               gone("Password required"_s);
    }

    bool holds(const QString& file, int sources, int kernos, int codings) {
        const KRNFile* project = KRNFile::instance();
        const auto held = [&] {
            return "%1: %2 sources, %3 kernos, %4 codings"_s.arg(currentName())
                .arg(project->sources().size())
                .arg(project->kernos().size())
                .arg(project->totalHighlightsCount());
        };
        return untilIs(
            "the project"_s,
            "%1: %2 sources, %3 kernos, %4 codings"_s.arg(file).arg(sources).arg(kernos).arg(codings), held);
    }
};

const Played<CopiesJob> played{"copies"_s, {plainRun, protectedRun}};

}  // namespace
