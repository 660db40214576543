#include "Job.h"

#include "SampleFiles.h"
#include "project/KRNFile.h"

#include <QFile>
#include <QQuickWindow>

namespace {

const QString plainRun = "plain"_s;
const QString standardRun = "standard"_s;
const QString word = "Öffne dich"_s;
const QString text = "What was said in the yard, by those who came.\n"_s;

QByteArray foreignArchive() {
    QFile document(QStringLiteral(KERNOVA_EXCHANGE_CORPUS "/other-program.qde"));
    if (!document.open(QIODevice::ReadOnly))
        return {};
    return samples::zip(
        {{"project.qde", document.readAll()},
         {"sources/a.txt", "\xEF\xBB\xBF<laughs> one &amp; two\r\nsecond \xF0\x9F\x98\x80 line"},
         {"sources/b.txt", "plain"}});
}

/// Brings a project over from another program, takes one there, and puts two together: by the open dialog and
/// the menus, with refusals on the way. The looks of the dialogs are judged, each run in one theme and size.
class ExchangeJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        m_plain = run == plainRun;
        const QString own = path(run + "-own.krn"_s);
        const QString archive = path(run + "-own.qdpx"_s);
        const QString other = path(run + " other program.qdpx"_s);
        const QString imported = path(run + " other program.krn"_s);
        const QString merged = path(run + "-merged.krn"_s);
        for (const QString& file : {archive, imported, merged})
            QFile::remove(file);
        if (!writeFile(other, foreignArchive()) || !writeFile(path("bad.qdpx"_s), "no archive"_s))
            return fail("no archive"_s);
        if (!signIn() || !createProject(own) || !codePassage(text, "in the yard"_s) || !chooseTheme(!m_plain))
            return false;
        return resize(m_plain ? QSize(980, 680) : QSize(1920, 1080)) && exportArchive(archive) &&
               refuseArchive() && importArchive(other, imported) && mergeProjects(own, merged);
    }

private:
    bool exportArchive(const QString& file) {
        return menu("Export"_s, "Export as REFI-QDA"_s) &&
               shown("Write texts and positions exactly as the standard says"_s) && (m_plain || flip(0)) &&
               look("export"_s) && chooseProject("Save As..."_s, file) &&
               shown("Exported successfully as %1"_s.arg(file)) && look("exported"_s) &&
               expect(QFile::exists(file), "there is no archive"_s) && click("Close"_s) && gone("Close"_s);
    }

    bool refuseArchive() {
        return showOpenDialog() && chooseProject("Open Other..."_s, path("bad.qdpx"_s)) &&
               shown("Import QDPX files"_s) && click("Import"_s) &&
               shown("The file is not a QDPX archive, or it is damaged."_s) && look("refused"_s) &&
               click("Cancel"_s);
    }

    bool importArchive(const QString& archive, const QString& project) {
        if (!chooseProject("Open Other..."_s, archive) || !shown("Import QDPX files"_s) || !shown(project))
            return false;
        if (!m_plain && (!flip(0) || !fillField(0, word) || !fillField(1, word)))
            return false;
        return look("import"_s) && click("Import"_s) && shown("Picture sources"_s) && look("skipped"_s) &&
               click("Open Project"_s) && untilIs("open is"_s, project, [&] { return currentName(); }) &&
               gone("Open Project"_s) &&
               expect(KRNFile::instance()->sources().size() == 2, "the sources are not all there"_s) &&
               expect(KRNFile::instance()->totalHighlightsCount() == 6, "codings are lost"_s) &&
               shoot("imported"_s);
    }

    bool mergeProjects(const QString& other, const QString& result) {
        const QString master = m_plain ? "plain other program"_s : "standard other program"_s;
        const QString added = m_plain ? "plain-own"_s : "standard-own"_s;
        const QString add = "Add Project"_s;
        if (!menu("Project"_s, "Merge Projects"_s) || !shown(master) ||
            !chooseProject(add, path(master + ".krn"_s)) ||
            !shown(master + " is already present as Master."_s) || !look("merge-refused"_s) ||
            !chooseProject(add, other) || !shown(added) || !chooseProject(add, other) ||
            !shown(added + " is already on the list to merge."_s) || !look("merge"_s) || !click("Next"_s) ||
            !shown("Author:"_s) || !look("merge-result"_s))
            return false;
        return click("Back"_s) && shown(add) && click("Next"_s) && chooseProject("Merge"_s, result) &&
               untilIs("open is"_s, result, [&] { return currentName(); }) && gone("Merge Projects"_s) &&
               expect(KRNFile::instance()->sources().size() == 3, "sources are lost"_s) &&
               expect(KRNFile::instance()->totalHighlightsCount() == 7, "codings are lost"_s) &&
               shoot("merged"_s);
    }

    bool m_plain = true;
};

const Played<ExchangeJob> played{"exchange"_s, {plainRun, standardRun}};

}  // namespace
