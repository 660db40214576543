#include "ProjectJob.h"

#include "project/KRNFile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickWindow>
#include <QSettings>
#include <algorithm>

namespace {

const QString password = QStringLiteral("Öffne dich");
const QString secretText = QStringLiteral("Was hier steht, bleibt unter uns.\n");
constexpr int recentLimit = 10;

QString answerOf(int number) {
    return QStringLiteral("Answer number %1. ").arg(number).repeated(60).trimmed();
}

}  // namespace

QStringList ProjectJob::runs() {
    return {QStringLiteral("protect"), QStringLiteral("unlock"), QStringLiteral("structured"),
            QStringLiteral("recent")};
}

bool ProjectJob::play(const QString& run) {
    if (run == QLatin1String("recent"))
        fillRecent();
    if (!signIn())
        return false;
    if (run == QLatin1String("protect"))
        return protect();
    if (run == QLatin1String("unlock"))
        return unlock();
    if (run == QLatin1String("structured"))
        return makeStructured() && importByMarkers() && goThroughQuestions();
    return tidyRecent() && refuseBroken() && openEleventh() && signOut();
}

bool ProjectJob::startNew() {
    if (!click(QStringLiteral("New Project")) || !shown(QStringLiteral("Structured Questions")))
        return false;
    QQuickItem* author = m_driver.itemNamed(QStringLiteral("author"));
    return expect(author && m_driver.fill(author, QStringLiteral("Ada Berger")),
                  QStringLiteral("there is no author"));
}

bool ProjectJob::flip(int switchNumber) {
    const QList<QQuickItem*> switches = m_driver.itemsOfType(QStringLiteral("Switch"));
    return expect(m_driver.click(switches.value(switchNumber)), QStringLiteral("there is no such switch"));
}

bool ProjectJob::fillField(int number, const QString& text) {
    const QList<QQuickItem*> fields = m_driver.itemsOfType(QStringLiteral("DialogTextField"));
    return expect(m_driver.fill(fields.value(number), text),
                  QStringLiteral("there is no field %1").arg(number));
}

bool ProjectJob::protect() {
    const QString file = path(QStringLiteral("secret.krn"));
    const QString source = path(QStringLiteral("Geheim.txt"));
    QFile::remove(file);
    // The fields are the author, the password and its repetition.
    return startNew() && flip(0) && fillField(1, password) && fillField(2, QStringLiteral("other")) &&
           shown(QStringLiteral("Passwords do not match.")) && click(QStringLiteral("New Project")) &&
           shown(QStringLiteral("Please repeat password exactly!")) && shoot(QStringLiteral("mismatch")) &&
           fillField(2, password) && shown(QStringLiteral("Passwords match.")) &&
           shoot(QStringLiteral("match")) && chooseProject(QStringLiteral("New Project"), file) &&
           untilOpen() && writeFile(source, secretText) && importFiles({source}) &&
           expect(m_source.read(secretText), QStringLiteral("the text of a protected project is not shown"));
}

bool ProjectJob::unlock() {
    if (!click(QStringLiteral("secret")) || !click(QStringLiteral("Open Selected")) ||
        !shown(QStringLiteral("secret.krn is password protected.")) ||
        !shown(QStringLiteral("Password required")) || !shoot(QStringLiteral("password-required")) ||
        !fillField(0, QStringLiteral("other")) || !click(QStringLiteral("OK")) ||
        !shown(QStringLiteral("Incorrect password")) || !shoot(QStringLiteral("incorrect")))
        return false;
    const QQuickItem* field = m_driver.itemsOfType(QStringLiteral("DialogTextField")).value(0);
    if (!expect(field->property("text").toString().isEmpty(),
                QStringLiteral("a wrong password stays in its field")))
        return false;
    m_driver.type(password);
    m_driver.press(Qt::Key_Return);
    return untilOpen() && expect(m_source.read(secretText), QStringLiteral("the text is not deciphered")) &&
           expect(KRNFile::instance()->sources().size() == 1, QStringLiteral("a source is lost")) &&
           shoot(QStringLiteral("unlocked"));
}

bool ProjectJob::makeStructured() {
    const QString file = path(QStringLiteral("questions.krn"));
    QFile::remove(file);
    return startNew() && flip(1) && shoot(QStringLiteral("structured")) &&
           chooseProject(QStringLiteral("New Project"), file) && untilOpen() &&
           expect(!KRNFile::instance()->singleQuestionMode(),
                  QStringLiteral("the project has one question only"));
}

bool ProjectJob::importByMarkers() {
    const QString file = path(QStringLiteral("answers.txt"));
    QString text;
    for (int number = 1; number <= 3; ++number)
        text += QStringLiteral("Q: What is number %1?\nA: %2\n").arg(number).arg(answerOf(number));
    if (!writeFile(file, text) ||
        !expect(m_driver.click(m_driver.itemNamed(QStringLiteral("addSource"))),
                QStringLiteral("there is no button to add a source")) ||
        !click(QStringLiteral("Import Source: Single File")) || !shown(QStringLiteral("Question Marker:")))
        return false;
    // The fields are the title and the markers.
    return fillField(1, QStringLiteral("Q:")) && fillField(2, QStringLiteral("A:")) &&
           chooseProject(QStringLiteral("Select File"), file) && shown(QStringLiteral("What is number 3?")) &&
           shoot(QStringLiteral("import-preview")) && click(QStringLiteral("Import")) &&
           gone(QStringLiteral("Question Marker:")) && shown(QStringLiteral("Source 1")) &&
           until([] { return KRNFile::instance()->questions().size() >= 3; },
                 QStringLiteral("questions are lost"));
}

bool ProjectJob::goThroughQuestions() {
    const QQuickItem* view = m_driver.itemNamed(QStringLiteral("answersView"));
    const auto scrolled = [view] { return view->property("contentY").toReal(); };
    QQuickItem* bar = m_driver.itemsOfType(QStringLiteral("QuestionNavigation")).value(0);
    const auto current = [bar] { return bar->property("currentIndex").toInt(); };
    if (!until([&] { return bar && bar->y() == 0; },
               QStringLiteral("there is no bar to go through the questions")))
        return false;
    const int first = current();
    shoot(QStringLiteral("questions"));
    m_driver.clickAt(bar, QPointF(bar->width() - 16, bar->height() / 2));
    if (!until([&] { return current() == first + 1 && scrolled() > 0; },
               QStringLiteral("the next question stays away")) ||
        !shoot(QStringLiteral("next-question")))
        return false;
    m_driver.clickAt(bar, QPointF(16, bar->height() / 2));
    return until([&] { return current() == first && qFuzzyIsNull(scrolled()); },
                 QStringLiteral("the way back to the first question is lost"));
}

QStringList ProjectJob::recentPaths() const {
    QStringList paths;
    const QString stored = QSettings().value(QStringLiteral("recentFiles")).toString();
    const QJsonArray entries = QJsonDocument::fromJson(stored.toUtf8()).array();
    for (const QJsonValue& entry : entries)
        paths << entry.toObject().value(QLatin1String("path")).toString();
    return paths;
}

// A list as it may be after years: full, with projects that no longer exist.
void ProjectJob::fillRecent() const {
    QJsonArray entries;
    for (int number = 1; number <= recentLimit; ++number) {
        const QString name = QStringLiteral("gone-%1").arg(number);
        entries.append(QJsonObject{{QStringLiteral("name"), name},
                                   {QStringLiteral("path"), path(name + QStringLiteral(".krn"))},
                                   {QStringLiteral("backup"), QString()}});
    }
    QSettings settings;
    settings.setValue(QStringLiteral("recentFiles"), QString::fromUtf8(QJsonDocument(entries).toJson()));
    settings.sync();
}

bool ProjectJob::tidyRecent() {
    QQuickItem* name = m_driver.itemWithText(QStringLiteral("gone-2"));
    QQuickItem* row = name ? name->parentItem()->parentItem() : nullptr;
    if (!expect(row, QStringLiteral("the recent projects are not listed")) ||
        !shoot(QStringLiteral("recent")))
        return false;
    m_driver.clickAt(row, QPointF(row->width() - 18, row->height() / 2));
    return gone(QStringLiteral("gone-2")) && until([&] { return recentPaths().size() == recentLimit - 1; },
                                                   QStringLiteral("the list is not stored"));
}

bool ProjectJob::refuseBroken() {
    const QString broken = path(QStringLiteral("broken.krn"));
    const auto untouched = [&] {
        return expect(!KRNFile::instance()->isOpened() &&
                          !m_driver.isShown(QStringLiteral("Password required")),
                      QStringLiteral("a file that can't be read is taken for a project"));
    };
    return click(QStringLiteral("gone-1")) && click(QStringLiteral("Open Selected")) &&
           shown(QStringLiteral("There is no project \"gone-1.krn\" any more.")) && untouched() &&
           shoot(QStringLiteral("missing")) &&
           expect(!QFile::exists(path(QStringLiteral("gone-1.krn"))),
                  QStringLiteral("a missing file is made")) &&
           writeFile(broken, QStringLiteral("This is no project.").repeated(300)) &&
           chooseProject(QStringLiteral("Open Other..."), broken) &&
           shown(QStringLiteral("\"broken.krn\" is not a Kernova project, or it is damaged.")) &&
           untouched() && shoot(QStringLiteral("broken"));
}

bool ProjectJob::openEleventh() {
    const QString questions = path(QStringLiteral("questions.krn"));
    const QString eleventh = path(QStringLiteral("eleventh.krn"));
    if (!chooseProject(QStringLiteral("Open Other..."), questions) || !untilOpen() ||
        !until([&] { return recentPaths().size() == recentLimit; },
               QStringLiteral("the tenth project is not listed")) ||
        !click(QStringLiteral("Project")) || !click(QStringLiteral("Open New or Existing")) ||
        !createProject(eleventh))
        return false;
    const auto dropped = [&] {
        const QStringList paths = recentPaths();
        return paths.size() == recentLimit && paths[0] == eleventh && paths[1] == questions &&
               !paths.contains(path(QStringLiteral("gone-10.krn")));
    };
    return until(dropped, QStringLiteral("the eleventh project does not drop the tenth from the list"));
}

// Nothing of the project is left on the window.
bool ProjectJob::signOut() {
    const auto title = [&] { return m_driver.mainWindow()->title(); };
    if (!until([&] { return title().endsWith(QLatin1String("eleventh.krn")); },
               QStringLiteral("the title does not name the project")) ||
        !click(QStringLiteral("Project")) || !click(QStringLiteral("Open New or Existing")) ||
        !shown(QStringLiteral("Open Selected")))
        return false;
    const QList<QQuickItem*> buttons = m_driver.itemsOfType(QStringLiteral("IconButton"));
    const auto leave = std::find_if(buttons.cbegin(), buttons.cend(), [](const QQuickItem* button) {
        return button->property("icon") == QStringLiteral("sign-out");
    });
    return expect(leave != buttons.cend() && m_driver.click(*leave),
                  QStringLiteral("there is no way to sign out")) &&
           shown(QStringLiteral("Sign In")) &&
           until([&] { return !title().contains(QLatin1String(".krn")); },
                 QStringLiteral("the title keeps a project that is closed"));
}
