#include "CopiesJob.h"

#include "project/KRNFile.h"

#include <QFile>
#include <QQuickWindow>

namespace {

const QString plainRun = QStringLiteral("plain");
const QString protectedRun = QStringLiteral("protected");
const QString password = QStringLiteral("Öffne dich");
const QString text = QStringLiteral("What was said in the yard, by those who came.\n");
const QString exportSources = QStringLiteral("Export Project (Sources Only)");
const QString exportStructure = QStringLiteral("Export Project (Structure Only)");

}  // namespace

QStringList CopiesJob::runs() {
    return {plainRun, protectedRun};
}

bool CopiesJob::play(const QString& run) {
    const bool isProtected = run == protectedRun;
    const QString word = isProtected ? password : QString();
    const QString file = path(run + QStringLiteral(".krn"));
    const QString copy = path(QStringLiteral("copy.krn"));
    const QString sources = path(run + QStringLiteral("-sources.krn"));
    const QString structure = path(run + QStringLiteral("-structure.krn"));
    if (!signIn() || !click(QStringLiteral("New Project")) || !shown(QStringLiteral("Structured Questions")))
        return false;
    if (isProtected) {
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(0));
        const QList<QQuickItem*> fields = m_driver.itemsOfType(QStringLiteral("DialogTextField"));
        if (!m_driver.fill(fields.value(1), password) || !m_driver.fill(fields.value(2), password))
            return fail(QStringLiteral("a password can't be given"));
    }
    if (!makeProject(file) || (!isProtected && !saveAs(copy)))
        return false;
    const QString current = isProtected ? file : copy;
    return exportPart(exportSources, sources) && exportPart(exportStructure, structure) &&
           holds(current, 1, 1, 1) && open(sources, word) && holds(sources, 1, 0, 0) &&
           expect(m_source.read(text), QStringLiteral("the text of the sources is lost")) &&
           shoot(QStringLiteral("sources")) && open(structure, word) && holds(structure, 0, 1, 0) &&
           until([&] { return m_canvas.bubble(QStringLiteral("Belonging")); },
                 QStringLiteral("the structure has no bubble")) &&
           shoot(QStringLiteral("structure")) && open(file, word) && holds(file, 1, 1, 1);
}

bool CopiesJob::makeProject(const QString& file) {
    QQuickItem* author = m_driver.itemNamed(QStringLiteral("author"));
    if (!m_driver.fill(author, QStringLiteral("Ada Berger")) ||
        !chooseProject(QStringLiteral("New Project"), file) || !untilOpen())
        return false;
    return codePassage(text, QStringLiteral("in the yard"));
}

bool CopiesJob::saveAs(const QString& file) {
    return click(QStringLiteral("Project")) && shown(QStringLiteral("Save As...")) &&
           shoot(QStringLiteral("project-menu")) && chooseProject(QStringLiteral("Save As..."), file) &&
           until([&] { return m_driver.mainWindow()->title().endsWith(file); },
                 QStringLiteral("the copy is not open, or the title does not say so")) &&
           gone(QStringLiteral("Author:")) && holds(file, 1, 1, 1) && shoot(QStringLiteral("saved-as"));
}

bool CopiesJob::exportPart(const QString& entry, const QString& file) {
    return click(QStringLiteral("Export")) && shown(entry) && shoot(QStringLiteral("export-menu")) &&
           chooseProject(entry, file) &&
           until([&] { return QFile::exists(file); }, QStringLiteral("no file comes of ") + entry);
}

bool CopiesJob::open(const QString& file, const QString& word) {
    if (!click(QStringLiteral("Project")) || !click(QStringLiteral("Open New or Existing")) ||
        !chooseProject(QStringLiteral("Open Other..."), file))
        return false;
    if (!word.isEmpty()) {
        if (!shown(QStringLiteral("Password required")))
            return false;
        m_driver.fill(m_driver.itemsOfType(QStringLiteral("DialogTextField")).value(0), word);
        m_driver.press(Qt::Key_Return);
    }
    return until([&] { return KRNFile::instance()->currentProject().value(QLatin1String("name")) == file; },
                 QStringLiteral("%1 does not open").arg(file)) &&
           untilOpen() && gone(QStringLiteral("Password required"));
}

bool CopiesJob::holds(const QString& file, int sources, int kernos, int codings) {
    const KRNFile* project = KRNFile::instance();
    const auto held = [&] {
        return QStringLiteral("%1: %2 sources, %3 kernos, %4 codings")
            .arg(project->currentProject().value(QLatin1String("name")).toString())
            .arg(project->sources().size())
            .arg(project->kernos().size())
            .arg(project->totalHighlightsCount());
    };
    const QString wanted = QStringLiteral("%1: %2 sources, %3 kernos, %4 codings")
                               .arg(file)
                               .arg(sources)
                               .arg(kernos)
                               .arg(codings);
    return until([&] { return held() == wanted; }, held() + QStringLiteral(" instead of ") + wanted);
}
