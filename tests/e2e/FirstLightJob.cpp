#include "FirstLightJob.h"

#include "project/KRNFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace {

const QString author = QStringLiteral("Ada Berger");
const QString firstTheme = QStringLiteral("Belonging");
const QString secondTheme = QStringLiteral("Everyday food");
const QString projectName = QStringLiteral("garden-study.krn");

QString sampleFile() {
    const QDir samples(qEnvironmentVariable("KERNOVA_SAMPLES", QStringLiteral(KERNOVA_SAMPLES_FOLDER)));
    const QStringList files = samples.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    return files.isEmpty() ? QString() : samples.filePath(files.first());
}

QString sampleText() {
    QFile file(sampleFile());
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll()) : QString();
}

// The sentence with this number among those that are neither too short nor too long to be coded.
QString sentence(int number) {
    static const QRegularExpression pattern(QStringLiteral("(?<=[.:] )[A-Z][^.:\n]{30,70}\\."));
    QRegularExpressionMatchIterator matches = pattern.globalMatch(sampleText());
    while (matches.hasNext()) {
        const QString found = matches.next().captured();
        if (number-- == 0)
            return found;
    }
    return {};
}

QString firstPassage() {
    return sentence(7);
}

QString secondPassage() {
    return sentence(6);
}

QString codedText(const QVariantMap& highlight) {
    return KRNFile::instance()
        ->partialAnswer(highlight.value(QStringLiteral("sourceId")).toInt(),
                        highlight.value(QStringLiteral("questionId")).toInt(),
                        highlight.value(QStringLiteral("start")).toInt(),
                        highlight.value(QStringLiteral("length")).toInt())
        .plainAnswer();
}

}  // namespace

bool FirstLightJob::play(const QString& run) {
    return run == QLatin1String("code") ? code() : reopen();
}

bool FirstLightJob::code() {
    return signIn() && createProject(path(projectName)) && readIntroduction() &&
           shoot(QStringLiteral("empty-project")) && importSource() && addKerno(firstTheme) &&
           m_canvas.drag(firstTheme, QPointF(220, 170)) && shoot(QStringLiteral("bubble")) && codePassage() &&
           undoAndRedo() && codeIntoNewKerno();
}

// It comes once, by itself.
bool FirstLightJob::readIntroduction() {
    const QQuickItem* slides = m_driver.itemNamed(QStringLiteral("introOverlay"));
    for (int step = 1; step <= 9; ++step) {
        if (!until([&] { return slides->property("status").toInt() == 1; },
                   QStringLiteral("step %1 of the introduction has no picture").arg(step)) ||
            !shoot(QStringLiteral("introduction")) || (step < 9 && !click(QStringLiteral(">>"))))
            return false;
    }
    return shown(QStringLiteral("Return to Main View")) && click(QStringLiteral("Close")) &&
           gone(QStringLiteral("Introduction"));
}

bool FirstLightJob::reopen() {
    return signIn() && openRecent() && compareProject();
}

bool FirstLightJob::importSource() {
    return importFiles({sampleFile()}) &&
           expect(m_source.read(sampleText()), QStringLiteral("the imported text is not shown whole")) &&
           shown(QFileInfo(sampleFile()).completeBaseName()) && shoot(QStringLiteral("source"));
}

bool FirstLightJob::selectPassage(const QString& passage) {
    const QString problem = m_source.select(passage);
    return expect(problem.isEmpty(), problem);
}

bool FirstLightJob::awaitCodings(int count, const QString& title) {
    return until([&] { return m_canvas.codings(title) == count; },
                 QStringLiteral("the bubble %1 does not count %2").arg(title).arg(count)) &&
           until([&] { return m_source.stripes().size() == KRNFile::instance()->totalHighlightsCount(); },
                 QStringLiteral("there is not one stripe for each coding"));
}

bool FirstLightJob::codePassage() {
    if (!selectPassage(firstPassage()) || !shoot(QStringLiteral("selection")))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(firstTheme));
    if (!awaitCodings(1, firstTheme) || !shoot(QStringLiteral("coded")))
        return false;
    const QString coded = codedText(KRNFile::instance()->highlights().value(0).toMap());
    return expect(coded == firstPassage(), QStringLiteral("coded is \"%1\"").arg(coded));
}

bool FirstLightJob::undoAndRedo() {
    return undo() && awaitCodings(0, firstTheme) && shoot(QStringLiteral("undone")) && redo() &&
           awaitCodings(1, firstTheme);
}

bool FirstLightJob::codeIntoNewKerno() {
    if (!selectPassage(secondPassage()))
        return false;
    m_source.dragSelectionTo(m_canvas.addButton());
    return nameNewKerno(secondTheme) && m_canvas.drag(secondTheme, QPointF(430, 320)) &&
           awaitCodings(1, secondTheme) && shoot(QStringLiteral("two-kernos"));
}

bool FirstLightJob::openRecent() {
    return click(QFileInfo(projectName).completeBaseName()) && shoot(QStringLiteral("recent")) &&
           click(QStringLiteral("Open Selected")) && untilOpen();
}

bool FirstLightJob::compareProject() {
    if (!expect(m_source.read(sampleText()), QStringLiteral("the text is not shown again")) ||
        !awaitCodings(1, firstTheme) || !awaitCodings(1, secondTheme))
        return false;
    QSet<QString> expected{firstPassage(), secondPassage()};
    const QVariantList highlights = KRNFile::instance()->highlights();
    for (const QVariant& item : highlights) {
        const QVariantMap highlight = item.toMap();
        const QString coded = codedText(highlight);
        if (!expect(expected.remove(coded), QStringLiteral("coded is \"%1\"").arg(coded)) ||
            !expect(highlight.value(QStringLiteral("author")).toString() == author,
                    QStringLiteral("the coding's author is lost")))
            return false;
    }
    return shoot(QStringLiteral("reopened")) &&
           expect(expected.isEmpty(), QStringLiteral("a coding is lost"));
}
