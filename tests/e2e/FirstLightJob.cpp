#include "Job.h"

#include "project/KRNFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

const QString author = "Ada Berger"_s;
const QString firstTheme = "Belonging"_s;
const QString secondTheme = "Everyday food"_s;
const QString projectName = "garden-study.krn"_s;

QString sampleFile() {
    const QDir samples(qEnvironmentVariable("KERNOVA_SAMPLES", QStringLiteral(KERNOVA_SAMPLES_FOLDER)));
    const QStringList files = samples.entryList({"*.txt"_s}, QDir::Files, QDir::Name);
    return files.isEmpty() ? QString() : samples.filePath(files.first());
}

QString sampleText() {
    QFile file(sampleFile());
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll()) : QString();
}

// The sentence with this number among those that are neither too short nor too long to be coded.
QString sentence(int number) {
    static const QRegularExpression pattern("(?<=[.:] )[A-Z][^.:\n]{30,70}\\."_s);
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

/// The first job of every researcher: a new project, an interview, a kerno, a coded passage, undo and redo;
/// and then, in a later run of the program, everything found again.
class FirstLightJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override { return run == "code"_s ? begin() : reopen(); }

private:
    bool begin() {
        return signIn() && createProject(path(projectName)) && readIntroduction() &&
               shoot("empty-project"_s) && importSource() && addKerno(firstTheme, QPointF(220, 170)) &&
               shoot("bubble"_s) && codePassage() && undoAndRedo() && codeIntoNewKerno();
    }

    // It comes once, by itself.
    bool readIntroduction() {
        const QQuickItem* slides = m_driver.itemNamed("introOverlay"_s);
        for (int step = 1; step <= 9; ++step) {
            if (!until([&] { return slides->property("status").toInt() == 1; },
                       "step %1 of the introduction has no picture"_s.arg(step)) ||
                !shoot("introduction"_s) || (step < 9 && !click(">>"_s)))
                return false;
        }
        return shown("Return to Main View"_s) && click("Close"_s) && gone("Introduction"_s);
    }

    bool reopen() { return signIn() && openRecent() && compareProject(); }

    bool importSource() {
        return importFiles({sampleFile()}) && reads(sampleText()) &&
               shown(QFileInfo(sampleFile()).completeBaseName()) && shoot("source"_s);
    }

    bool awaitCodings(int count, const QString& title) {
        return untilIs(title + " is coded"_s, count, [&] { return m_canvas.codings(title); }) &&
               untilIs("the stripes"_s, KRNFile::instance()->totalHighlightsCount(),
                       [&] { return m_source.stripes().size(); });
    }

    bool codePassage() {
        return select(firstPassage()) && shoot("selection"_s) && code(firstPassage(), firstTheme) &&
               awaitCodings(1, firstTheme) && shoot("coded"_s);
    }

    bool undoAndRedo() {
        return undo() && awaitCodings(0, firstTheme) && shoot("undone"_s) && redo() &&
               awaitCodings(1, firstTheme);
    }

    bool codeIntoNewKerno() {
        if (!select(secondPassage()))
            return false;
        m_source.dragSelectionTo(m_canvas.addButton());
        return nameNewKerno(secondTheme) && m_canvas.drag(secondTheme, QPointF(430, 320)) &&
               awaitCodings(1, secondTheme) && shoot("two-kernos"_s);
    }

    bool openRecent() {
        return click(QFileInfo(projectName).completeBaseName()) && shoot("recent"_s) &&
               click("Open Selected"_s) && untilOpen();
    }

    bool compareProject() {
        if (!reads(sampleText()) || !awaitCodings(1, firstTheme) || !awaitCodings(1, secondTheme))
            return false;
        for (const QVariant& highlight : KRNFile::instance()->highlights()) {
            if (!expect(highlight.toMap().value("author"_s) == author, "the coding's author is lost"_s))
                return false;
        }
        return shoot("reopened"_s) && expect(coded(firstTheme) == QStringList{firstPassage()} &&
                                                 coded(secondTheme) == QStringList{secondPassage()},
                                             "a coding is lost"_s);
    }
};

const Played<FirstLightJob> played{"first-light"_s, {"code"_s, "reopen"_s}};

}  // namespace
