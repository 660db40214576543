#include "LooksJob.h"
#include "models/QuestionAnswerMainModel.h"
#include "project/KRNFile.h"

#include <QFile>

bool LooksJob::lookAtEditor(const QString& entry) {
    SourcePage editor(m_driver, QStringLiteral("editedText"));
    // The uppermost that has words.
    QQuickItem* shownText = nullptr;
    for (QQuickItem* item : m_driver.itemsOfType(QStringLiteral("KernovaTextEdit"))) {
        if (item->property("length").toInt() > 0 &&
            (!shownText || item->mapToScene({}).y() < shownText->mapToScene({}).y()))
            shownText = item;
    }
    if (!expect(shownText != nullptr, QStringLiteral("there is no text")))
        return false;
    if (!m_driver.clickAt(shownText, QPointF(60, 12), Qt::RightButton) || !click(entry) ||
        !until([&] { return editor.textItem() && editor.textItem()->hasActiveFocus(); },
               QStringLiteral("the text can't be edited")))
        return false;
    m_driver.type(QStringLiteral("Well, "));
    m_driver.press(Qt::Key_Escape);
    if (!shown(QStringLiteral("There are changes. Save them, or drop them by Cancel.")) ||
        !look(QStringLiteral("editor")))
        return false;
    KRNFile* const project = KRNFile::instance();
    QuestionAnswer answer = project->answerModel()->answer(shownText->property("sourceId").toInt(),
                                                           shownText->property("questionId").toInt());
    answer.setAnswer(answer.plainAnswer() + QStringLiteral("And so on."));
    project->saveAnswer(answer);
    return shown(QStringLiteral("Save as New Source")) && look(QStringLiteral("editor-outdated")) &&
           click(QStringLiteral("Cancel")) && gone(entry);
}

bool LooksJob::makeStructured(const QString& name) {
    const QString file = path(QStringLiteral("Answers.txt"));
    QString interview;
    for (const char* question :
         {"Where do you live, and with whom?", "And before?",
          "What do you remember of the garden of your grandparents, of its paths and of all "
          "who worked in it when you were a child?"})
        interview +=
            QStringLiteral("Question: %1\nAnswer: %2\n")
                .arg(QString::fromUtf8(question), QStringLiteral("That was long ago. ").repeated(30));
    return writeFile(file, interview) && click(QStringLiteral("Project")) &&
           click(QStringLiteral("Open New or Existing")) &&
           createProject(path(name + QStringLiteral("-questions.krn")), true) && lookAtPreview() &&
           click(QStringLiteral("Import")) && gone(QStringLiteral("Source Title:")) &&
           shown(QStringLiteral("Q:"));
}

bool LooksJob::lookAtPreview() {
    m_driver.click(m_driver.itemNamed(QStringLiteral("addSource")));
    return click(QStringLiteral("Import Source: Single File")) && shown(QStringLiteral("Source Title:")) &&
           chooseProject(QStringLiteral("Select File"), path(QStringLiteral("Answers.txt"))) &&
           shown(QStringLiteral("And before?")) && look(QStringLiteral("import-preview"));
}

bool LooksJob::lookAtQuestions() {
    const QString newQuestion = QStringLiteral("New question:");
    if (!look(QStringLiteral("answers")) || !lookAtEditor(QStringLiteral("Edit Answer")) || !lookAtPreview())
        return false;
    m_driver.press(Qt::Key_Escape);
    if (!gone(QStringLiteral("Source Title:")) ||
        !m_driver.click(m_driver.itemNamed(QStringLiteral("questionsTab"))) || !shown(newQuestion) ||
        !m_driver.fill(m_driver.itemNamed(QStringLiteral("questionText")), QStringLiteral("And before?")) ||
        !click(QStringLiteral("Save")) || !shown(QStringLiteral("Question already exists!")))
        return false;
    return closeDialog(QStringLiteral("questions"), newQuestion);
}
