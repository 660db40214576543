#include "ExchangeJob.h"

#include "LayoutCheck.h"
#include "SampleFiles.h"
#include "project/KRNFile.h"

#include <QFile>
#include <QQuickWindow>

namespace {

const QString plainRun = QStringLiteral("plain");
const QString standardRun = QStringLiteral("standard");
const QString word = QStringLiteral("Öffne dich");
const QString text = QStringLiteral("What was said in the yard, by those who came.\n");

QByteArray foreignArchive() {
    QFile document(QStringLiteral(KERNOVA_EXCHANGE_CORPUS "/other-program.qde"));
    if (!document.open(QIODevice::ReadOnly))
        return {};
    return samples::zip(
        {{"project.qde", document.readAll()},
         {"sources/a.txt", "\xEF\xBB\xBF<laughs> one &amp; two\r\nsecond \xF0\x9F\x98\x80 line"},
         {"sources/b.txt", "plain"}});
}

bool write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString current() {
    return KRNFile::instance()->currentProject().value(QLatin1String("name")).toString();
}

}  // namespace

QStringList ExchangeJob::runs() {
    return {plainRun, standardRun};
}

bool ExchangeJob::play(const QString& run) {
    m_plain = run == plainRun;
    const QString own = path(run + QStringLiteral("-own.krn"));
    const QString archive = path(run + QStringLiteral("-own.qdpx"));
    const QString other = path(run + QStringLiteral(" other program.qdpx"));
    const QString imported = path(run + QStringLiteral(" other program.krn"));
    const QString merged = path(run + QStringLiteral("-merged.krn"));
    for (const QString& file : {archive, imported, merged})
        QFile::remove(file);
    if (!write(other, foreignArchive()) || !write(path(QStringLiteral("bad.qdpx")), "no archive"))
        return fail(QStringLiteral("no archive"));
    if (!signIn() || !makeProject(own) || !chooseTheme(!m_plain))
        return false;
    m_driver.mainWindow()->setGeometry(m_plain ? QRect(0, 0, 980, 680) : QRect(0, 0, 1920, 1080));
    return exportArchive(archive) && refuseArchive() && importArchive(other, imported) &&
           mergeProjects(own, merged);
}

bool ExchangeJob::look(const QString& name) {
    m_driver.screenshot(name);
    const QStringList faults = layout::screenFaults(m_driver);
    return expect(faults.isEmpty(), name + QStringLiteral(": ") + faults.join(QStringLiteral("; ")));
}

bool ExchangeJob::makeProject(const QString& file) {
    const QString source = path(QStringLiteral("Yard.txt"));
    if (!createProject(file) || !writeFile(source, text) || !importFiles({source}) ||
        !addKerno(QStringLiteral("Belonging")) || !expect(m_source.read(text), QStringLiteral("no text")))
        return false;
    const QString problem = m_source.select(QStringLiteral("in the yard"));
    m_source.dragSelectionTo(m_canvas.bubble(QStringLiteral("Belonging")));
    return expect(problem.isEmpty(), problem) &&
           until([] { return KRNFile::instance()->totalHighlightsCount() == 1; },
                 QStringLiteral("the passage is not coded"));
}

bool ExchangeJob::exportArchive(const QString& file) {
    if (!click(QStringLiteral("Export")) || !click(QStringLiteral("Export as REFI-QDA")) ||
        !shown(QStringLiteral("Write texts and positions exactly as the standard says")))
        return false;
    if (!m_plain)
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(0));
    return look(QStringLiteral("export")) && chooseProject(QStringLiteral("Save As..."), file) &&
           shown(QStringLiteral("Exported successfully as %1").arg(file)) &&
           look(QStringLiteral("exported")) &&
           expect(QFile::exists(file), QStringLiteral("there is no archive")) &&
           click(QStringLiteral("Close")) && gone(QStringLiteral("Close"));
}

bool ExchangeJob::refuseArchive() {
    return click(QStringLiteral("Project")) && click(QStringLiteral("Open New or Existing")) &&
           chooseProject(QStringLiteral("Open Other..."), path(QStringLiteral("bad.qdpx"))) &&
           shown(QStringLiteral("Import QDPX files")) && click(QStringLiteral("Import")) &&
           shown(QStringLiteral("The file is not a QDPX archive, or it is damaged.")) &&
           look(QStringLiteral("refused")) && click(QStringLiteral("Cancel"));
}

bool ExchangeJob::importArchive(const QString& archive, const QString& project) {
    if (!chooseProject(QStringLiteral("Open Other..."), archive) ||
        !shown(QStringLiteral("Import QDPX files")) || !shown(project))
        return false;
    if (!m_plain) {
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(0));
        const QList<QQuickItem*> fields = m_driver.itemsOfType(QStringLiteral("DialogTextField"));
        m_driver.fill(fields.value(0), word);
        m_driver.fill(fields.value(1), word);
    }
    return look(QStringLiteral("import")) && click(QStringLiteral("Import")) &&
           shown(QStringLiteral("Picture sources")) && look(QStringLiteral("skipped")) &&
           click(QStringLiteral("Open Project")) &&
           until([&] { return current() == project; }, QStringLiteral("the import does not open")) &&
           gone(QStringLiteral("Open Project")) &&
           expect(KRNFile::instance()->sources().size() == 2,
                  QStringLiteral("the sources are not all there")) &&
           expect(KRNFile::instance()->totalHighlightsCount() == 6, QStringLiteral("codings are lost")) &&
           shoot(QStringLiteral("imported"));
}

bool ExchangeJob::mergeProjects(const QString& other, const QString& result) {
    const QString master =
        m_plain ? QStringLiteral("plain other program") : QStringLiteral("standard other program");
    const QString added = m_plain ? QStringLiteral("plain-own") : QStringLiteral("standard-own");
    const QString add = QStringLiteral("Add Project");
    if (!click(QStringLiteral("Project")) || !click(QStringLiteral("Merge Projects")) || !shown(master) ||
        !chooseProject(add, path(master + QStringLiteral(".krn"))) ||
        !shown(master + QStringLiteral(" is already present as Master.")) ||
        !look(QStringLiteral("merge-refused")) || !chooseProject(add, other) || !shown(added) ||
        !chooseProject(add, other) || !shown(added + QStringLiteral(" is already on the list to merge.")) ||
        !look(QStringLiteral("merge")) || !click(QStringLiteral("Next")) ||
        !shown(QStringLiteral("Author:")) || !look(QStringLiteral("merge-result")))
        return false;
    return click(QStringLiteral("Back")) && shown(add) && click(QStringLiteral("Next")) &&
           chooseProject(QStringLiteral("Merge"), result) &&
           until([&] { return current() == result; }, QStringLiteral("the result does not open")) &&
           gone(QStringLiteral("Merge Projects")) &&
           expect(KRNFile::instance()->sources().size() == 3, QStringLiteral("sources are lost")) &&
           expect(KRNFile::instance()->totalHighlightsCount() == 7, QStringLiteral("codings are lost")) &&
           shoot(QStringLiteral("merged"));
}
