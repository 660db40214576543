#include "FirstLightJob.h"

#include "models/KernoModel.h"
#include "project/KRNFile.h"

#include <QFile>
#include <QFileInfo>
#include <QQuickWindow>
#include <QSet>
#include <QTest>

namespace {

const QString author = QStringLiteral("Ada Berger");
const QString firstTheme = QStringLiteral("Belonging");
const QString secondTheme = QStringLiteral("Everyday food");

// Runs steps until one fails; gives what it said.
template <typename... Step> QString play(FirstLightJob* job, Step... steps) {
    QString failure;
    const bool allWell = ((failure = (job->*steps)(), failure.isEmpty()) && ...);
    return allWell ? QString() : failure;
}

QString textOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll());
}

// A stretch of about `length` characters inside one line, from the line that follows `skip` others of that length.
QString passageOf(const QString& text, int skip, int length) {
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.size() < length + 20 || skip-- > 0)
            continue;
        return line.mid(10, length);
    }
    return {};
}

}  // namespace

FirstLightJob::FirstLightJob(AppDriver& driver, const QString& folder, const QString& sampleFile)
    : m_driver(driver), m_folder(folder), m_sampleFile(sampleFile) {}

QString FirstLightJob::projectFile() const {
    return m_folder + QStringLiteral("/garden-study.krn");
}

QString FirstLightJob::code() {
    return play(this, &FirstLightJob::signIn, &FirstLightJob::createProject, &FirstLightJob::importSource,
                &FirstLightJob::readSource, &FirstLightJob::makeKerno, &FirstLightJob::codePassage,
                &FirstLightJob::undoAndRedo, &FirstLightJob::codeIntoNewKerno);
}

QString FirstLightJob::reopen() {
    return play(this, &FirstLightJob::signIn, &FirstLightJob::openRecent, &FirstLightJob::compareProject);
}

QString FirstLightJob::signIn() {
    QQuickItem* local = m_driver.itemWithText(QStringLiteral("Continue with local storage"));
    if (!local)
        return QStringLiteral("the sign-in dialog does not come");
    m_driver.screenshot(QStringLiteral("sign-in"));
    m_driver.click(local);
    return m_driver.itemWithText(QStringLiteral("New Project")) ? QString()
                                                              : QStringLiteral("the open dialog does not come");
}

QString FirstLightJob::createProject() {
    m_driver.clickText(QStringLiteral("New Project"));
    QQuickItem* name = m_driver.itemNamed(QStringLiteral("author"));
    if (!name || !m_driver.fill(name, author))
        return QStringLiteral("there is no field for the author");
    m_driver.screenshot(QStringLiteral("new-project"));
    const QString path = projectFile();
    const bool chosen = m_driver.during([&] { m_driver.clickText(QStringLiteral("New Project")); },
                                        [&] { return m_driver.chooseFiles({path}); });
    if (!chosen)
        return QStringLiteral("the file dialog for a new project does not come");
    if (!AppDriver::waitFor([] { return KRNFile::instance()->isOpened(); }))
        return QStringLiteral("the new project does not open");
    if (!AppDriver::waitFor([&] { return !m_driver.isShown(QStringLiteral("New Project")); }))
        return QStringLiteral("the open dialog stays");
    m_driver.screenshot(QStringLiteral("empty-project"));
    return {};
}

QString FirstLightJob::importSource() {
    if (!m_driver.clickText(QStringLiteral("Click to Add Source >")))
        return QStringLiteral("the empty tab strip does not ask for a source");
    QQuickItem* entry = m_driver.itemWithText(QStringLiteral("Import Source: Select File(s)"));
    if (!entry)
        return QStringLiteral("the add menu does not open");
    m_driver.screenshot(QStringLiteral("add-menu"));
    // Two dialogs follow one another: the files, and the count of what was imported.
    bool filesChosen = false;
    const bool imported = m_driver.during([&] { m_driver.click(entry); },
                                          [&] {
                                              filesChosen = filesChosen || m_driver.chooseFiles({m_sampleFile});
                                              return filesChosen && m_driver.answerMessageBox(QStringLiteral("OK"));
                                          });
    if (!filesChosen)
        return QStringLiteral("the file dialog for sources does not come");
    return imported ? QString() : QStringLiteral("the import does not tell what it did");
}

QString FirstLightJob::readSource() {
    const QString text = textOf(m_sampleFile);
    const bool shown = AppDriver::waitFor([&] {
        QQuickItem* item = answerText();
        return item && item->property("length").toInt() >= text.trimmed().size();
    });
    if (!shown)
        return QStringLiteral("the imported text is not shown whole");
    const QString title = QFileInfo(m_sampleFile).completeBaseName();
    if (!m_driver.isShown(title))
        return QStringLiteral("no tab reads ") + title;
    m_driver.screenshot(QStringLiteral("source"));
    return {};
}

QString FirstLightJob::makeKerno() {
    const QList<QQuickItem*> buttons = m_driver.itemsOfType(QStringLiteral("AddKernoButton"));
    if (buttons.isEmpty() || !m_driver.click(buttons.first()))
        return QStringLiteral("there is no button to add a kerno");
    QQuickItem* title = m_driver.itemNamed(QStringLiteral("kernoTitle"));
    if (!title)
        return QStringLiteral("the dialog of the new kerno does not come");
    AppDriver::waitFor([&] { return title->hasActiveFocus(); });
    m_driver.type(firstTheme);
    m_driver.screenshot(QStringLiteral("new-kerno"));
    m_driver.press(Qt::Key_Return);
    if (!AppDriver::waitFor([&] { return bubble(firstTheme); }))
        return QStringLiteral("no bubble reads ") + firstTheme;
    AppDriver::waitFor([&] { return !m_driver.isShown(QStringLiteral("Kerno Properties")); });
    m_driver.screenshot(QStringLiteral("bubble"));
    return {};
}

QQuickItem* FirstLightJob::answerText() {
    return m_driver.itemNamed(QStringLiteral("answerText"), 0);
}

QQuickItem* FirstLightJob::bubble(const QString& title) {
    const QList<QQuickItem*> bubbles = m_driver.itemsOfType(QStringLiteral("CircleParentKerno"));
    for (QQuickItem* candidate : bubbles) {
        if (candidate->property("title").toString() == title)
            return candidate;
    }
    return nullptr;
}

QString FirstLightJob::selectPassage(const QString& passage) {
    QQuickItem* text = answerText();
    if (!text)
        return QStringLiteral("no text is shown");
    const QString shown = text->property("selectedText").isValid() ? textOf(m_sampleFile) : QString();
    const int start = shown.indexOf(passage);
    if (start < 0)
        return QStringLiteral("the sample has no such passage");
    const auto rectangleAt = [text](int position) {
        QRectF rectangle;
        QMetaObject::invokeMethod(text, "positionToRectangle", Q_RETURN_ARG(QRectF, rectangle), Q_ARG(int, position));
        return rectangle;
    };
    QQuickWindow* window = text->window();
    const QPoint from = text->mapToScene(rectangleAt(start).center()).toPoint();
    const QPoint to = text->mapToScene(rectangleAt(start + passage.size()).center()).toPoint();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 5; ++step)
        QTest::mouseMove(window, from + (to - from) * step / 5);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, to);
    m_driver.settle();
    const QString selected = text->property("selectedText").toString();
    return selected == passage ? QString() : QStringLiteral("selected is \"%1\"").arg(selected);
}

QString FirstLightJob::dragSelectionTo(QQuickItem* target) {
    QQuickItem* text = answerText();
    QRectF start;
    const int first = text->property("selectionStart").toInt();
    QMetaObject::invokeMethod(text, "positionToRectangle", Q_RETURN_ARG(QRectF, start), Q_ARG(int, first + 4));
    m_driver.drag(text, start.center(), target, QPointF(target->width() / 2, target->height() / 2));
    return {};
}

QString FirstLightJob::awaitCodings(int count, const QString& title) {
    const bool counted = AppDriver::waitFor([&] {
        QQuickItem* item = bubble(title);
        return item && item->property("highlightsCount").toInt() == count;
    });
    if (!counted)
        return QStringLiteral("the bubble %1 does not count %2").arg(title).arg(count);
    const int total = KRNFile::instance()->totalHighlightsCount();
    const bool striped = AppDriver::waitFor([&] { return stripes() == total; });
    return striped ? QString() : QStringLiteral("there are not %1 stripes beside the text").arg(total);
}

int FirstLightJob::stripes() {
    int count = 0;
    const QList<QQuickItem*> bars = m_driver.itemsOfType(QStringLiteral("HighlightsBar"));
    for (QQuickItem* bar : bars) {
        const QList<QQuickItem*> children = bar->childItems();
        for (QQuickItem* child : children) {
            if (child->isVisible() && child->height() > 0 && child->property("highlightId").toInt() > 0)
                ++count;
        }
    }
    return count;
}

QString FirstLightJob::codePassage() {
    const QString passage = passageOf(textOf(m_sampleFile), 0, 30);
    if (const QString failure = selectPassage(passage); !failure.isEmpty())
        return failure;
    m_driver.screenshot(QStringLiteral("selection"));
    dragSelectionTo(bubble(firstTheme));
    if (const QString failure = awaitCodings(1, firstTheme); !failure.isEmpty())
        return failure;
    const QVariantList highlights = KRNFile::instance()->highlights();
    const QVariantMap coded = highlights.value(0).toMap();
    const QuestionAnswer part =
        KRNFile::instance()->partialAnswer(coded.value(QStringLiteral("sourceId")).toInt(),
                                           coded.value(QStringLiteral("questionId")).toInt(),
                                           coded.value(QStringLiteral("start")).toInt(),
                                           coded.value(QStringLiteral("length")).toInt());
    m_driver.screenshot(QStringLiteral("coded"));
    return part.plainAnswer() == passage ? QString()
                                         : QStringLiteral("coded is \"%1\"").arg(part.plainAnswer());
}

QString FirstLightJob::undoAndRedo() {
    m_driver.press(Qt::Key_Z, Qt::ControlModifier);
    if (const QString failure = awaitCodings(0, firstTheme); !failure.isEmpty())
        return QStringLiteral("after undo, ") + failure;
    m_driver.screenshot(QStringLiteral("undone"));
    m_driver.press(Qt::Key_Y, Qt::ControlModifier);
    if (const QString failure = awaitCodings(1, firstTheme); !failure.isEmpty())
        return QStringLiteral("after redo, ") + failure;
    return {};
}

QString FirstLightJob::codeIntoNewKerno() {
    const QString passage = passageOf(textOf(m_sampleFile), 1, 24);
    if (const QString failure = selectPassage(passage); !failure.isEmpty())
        return failure;
    const QList<QQuickItem*> buttons = m_driver.itemsOfType(QStringLiteral("AddKernoButton"));
    dragSelectionTo(buttons.value(0));
    QQuickItem* title = m_driver.itemNamed(QStringLiteral("kernoTitle"));
    if (!title)
        return QStringLiteral("the dialog of the second kerno does not come");
    AppDriver::waitFor([&] { return title->hasActiveFocus(); });
    m_driver.press(Qt::Key_A, Qt::ControlModifier);
    m_driver.type(secondTheme);
    m_driver.press(Qt::Key_Return);
    if (const QString failure = awaitCodings(1, secondTheme); !failure.isEmpty())
        return failure;
    m_driver.screenshot(QStringLiteral("two-kernos"));
    return {};
}

QString FirstLightJob::openRecent() {
    const QString name = QFileInfo(projectFile()).fileName();
    QQuickItem* entry = m_driver.itemWithText(name, 3000);
    if (!entry)
        entry = m_driver.itemWithText(QFileInfo(projectFile()).completeBaseName(), 3000);
    if (!entry)
        return QStringLiteral("the recent projects do not list ") + name;
    m_driver.click(entry);
    m_driver.screenshot(QStringLiteral("recent"));
    m_driver.clickText(QStringLiteral("Open Selected"));
    if (!AppDriver::waitFor([] { return KRNFile::instance()->isOpened(); }))
        return QStringLiteral("the project does not open: ") + KRNFile::instance()->getLastOpenError();
    return {};
}

QString FirstLightJob::compareProject() {
    for (const QString& title : {firstTheme, secondTheme}) {
        if (const QString failure = awaitCodings(1, title); !failure.isEmpty())
            return failure;
    }
    const QString text = textOf(m_sampleFile);
    QSet<QString> expected{passageOf(text, 0, 30), passageOf(text, 1, 24)};
    const QVariantList highlights = KRNFile::instance()->highlights();
    for (const QVariant& item : highlights) {
        const QVariantMap map = item.toMap();
        const QString passage = KRNFile::instance()
                                    ->partialAnswer(map.value(QStringLiteral("sourceId")).toInt(),
                                                    map.value(QStringLiteral("questionId")).toInt(),
                                                    map.value(QStringLiteral("start")).toInt(),
                                                    map.value(QStringLiteral("length")).toInt())
                                    .plainAnswer();
        if (!expected.remove(passage))
            return QStringLiteral("coded is \"%1\"").arg(passage);
        if (map.value(QStringLiteral("author")).toString() != author)
            return QStringLiteral("the coding's author is lost");
    }
    m_driver.screenshot(QStringLiteral("reopened"));
    return expected.isEmpty() ? QString() : QStringLiteral("a coding is lost");
}
