#include "EditJob.h"

#include "link/DataHelper.h"
#include "project/KRNFile.h"

#include <algorithm>

namespace {

const QString belonging = QStringLiteral("Belonging");
const QString food = QStringLiteral("Food");

// As one that was edited elsewhere is stored: a line by a tag, marks in one another, letters of two units.
const QString html = QStringLiteral(
    "<body style=\"white-space: pre-wrap;\">\n"
    "🌻 &lt;laughs&gt; we came<br>in <b>spring <i>to the <u>garden</u></i></b> 🥕 and stayed.\n"
    "\tThe  soup was hot &amp; good.\n</body>");
const QString text = QStringLiteral("🌻 <laughs> we came\nin spring to the garden 🥕 and stayed.\n"
                                    "\tThe  soup was hot & good.");
const QString garden = QStringLiteral("to the garden 🥕 and");
const QString soup = QStringLiteral("soup was hot");

QString coded(const QString& title) {
    KRNFile* const project = KRNFile::instance();
    for (const Kerno& kerno : project->allKernos()) {
        const Highlight found = project->highlightsOfKerno(kerno.id()).value(0);
        if (kerno.title() == title)
            return project->partialAnswer(found.sourceId(), found.questionId(), found.start(), found.length())
                .plainAnswer();
    }
    return {};
}

}  // namespace

QStringList EditJob::runs() {
    return {QStringLiteral("text"), QStringLiteral("questions")};
}

bool EditJob::play(const QString& run) {
    if (!signIn())
        return false;
    if (run == QLatin1String("questions"))
        return createProject(path(run + QStringLiteral(".krn")), true) && askQuestions() &&
               orderQuestions() && answerQuestion();
    return createProject(path(run + QStringLiteral(".krn"))) && makeSource() && code(garden, belonging) &&
           code(soup, food) && stored(text, garden, soup) && editAndSave() && goBackAndForth() &&
           keepBoth() && find() && zoom() && fillBlank() && refuseHtml();
}

bool EditJob::makeSource() {
    const QString file = path(QStringLiteral("Garden.txt"));
    if (!writeFile(file, QStringLiteral("x")) || !importFiles({file}) || !addKerno(belonging) ||
        !m_canvas.drag(belonging, QPointF(200, 200)) || !addKerno(food))
        return false;
    QuestionAnswer answer = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>().value(0);
    answer.setAnswer(html);
    KRNFile::instance()->saveAnswer(answer);
    return expect(m_source.read(text), QStringLiteral("the text is not shown"));
}

bool EditJob::code(const QString& passage, const QString& title) {
    const QString problem = m_source.select(passage);
    const int before = undoIndex();
    if (!expect(problem.isEmpty(), problem))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(title));
    return untilUndoIndex(before + 1);
}

bool EditJob::stored(const QString& text, const QString& first, const QString& second) {
    const auto held = [&] {
        const QuestionAnswer answer = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>().value(0);
        return answer.plainAnswer() == text && coded(belonging) == first && coded(food) == second;
    };
    return until(held, QStringLiteral("coded is \"%1\" and \"%2\"").arg(coded(belonging), coded(food))) &&
           expect(m_source.read(text), QStringLiteral("what is stored isn't shown")) &&
           until([&] { return m_source.stripes().size() == (first.isEmpty() ? 0 : 2); },
                 QStringLiteral("the stripes don't follow"));
}

bool EditJob::openEditor() {
    return m_driver.clickAt(m_source.textItem(), m_source.rectangleAt(4).center(), Qt::RightButton) &&
           shoot(QStringLiteral("menu")) && click(QStringLiteral("Edit Source Text")) &&
           shown(QStringLiteral("Save")) &&
           until([&] { return m_editor.textItem() && m_editor.textItem()->hasActiveFocus(); },
                 QStringLiteral("the editor does not take the keys"));
}

// Words before the first coding, inside of it and over the start of the second change; a mark comes.
bool EditJob::editAndSave() {
    if (!openEditor() || !expect(m_editor.read(text), QStringLiteral("the editor has another text")) ||
        !expect(m_editor.select(QStringLiteral("to the")).isEmpty(),
                QStringLiteral("nothing can be selected")))
        return false;
    m_driver.click(m_driver.itemNamed(QStringLiteral("markUnderline")));
    m_driver.press(Qt::Key_Right);
    m_driver.type(QStringLiteral(" big <&>"));
    if (!expect(m_editor.select(QStringLiteral(" we came")).isEmpty(),
                QStringLiteral("nothing can be selected")))
        return false;
    m_driver.press(Qt::Key_Delete);
    m_driver.press(Qt::Key_Home, Qt::ControlModifier);
    m_driver.type(QStringLiteral("Then "));
    const int before = undoIndex();
    // Each beside its own line, so in one column.
    const auto stripesFollow = [&] {
        int found = 0;
        for (const QQuickItem* item :
             m_driver.itemsOfType(QStringLiteral("HighlightsBar")).value(1)->childItems()) {
            if (item->isVisible() && item->property("highlightId").toInt() > 0)
                found += item->x() == 0 ? 1 : 100;
        }
        return found == 2;
    };
    return until(stripesFollow, QStringLiteral("the editor has no stripes")) &&
           shoot(QStringLiteral("edited")) && click(QStringLiteral("Save")) &&
           gone(QStringLiteral("Edit Source Text")) && untilUndoIndex(before + 1) &&
           stored(
               QStringLiteral("Then 🌻 <laughs>\nin spring to the big <&> garden 🥕 and stayed.\n\tThe  "
                              "soup was hot & good."),
               QStringLiteral("to the big <&> garden 🥕 and"), soup) &&
           shoot(QStringLiteral("saved"));
}

bool EditJob::goBackAndForth() {
    const QString edited = QStringLiteral(
        "Then 🌻 <laughs>\nin spring to the big <&> garden 🥕 and stayed.\n\tThe  soup was hot & good.");
    return undo() && stored(text, garden, soup) && redo() &&
           stored(edited, QStringLiteral("to the big <&> garden 🥕 and"), soup);
}

bool EditJob::keepBoth() {
    KRNFile* const project = KRNFile::instance();
    const QuestionAnswer before = project->dataHelper()->findAll<QuestionAnswer>().value(0);
    QuestionAnswer others = before;
    others.setAnswer(QStringLiteral("Rewritten."));
    if (!openEditor())
        return false;
    m_driver.press(Qt::Key_Home, Qt::ControlModifier);
    m_driver.type(QStringLiteral("Mine: "));
    project->saveAnswer(others);
    const QString own = QStringLiteral("Garden (version of Ada Berger)");
    const bool kept = click(QStringLiteral("Save as New Source")) &&
                      gone(QStringLiteral("Edit Source Text")) && shown(own) &&
                      expect(m_source.read(QStringLiteral("Mine: ") + before.plainAnswer()),
                             QStringLiteral("one's own text is lost")) &&
                      expect(project->answer(before.id()).plainAnswer() == others.plainAnswer(),
                             QStringLiteral("somebody's text is lost")) &&
                      shoot(QStringLiteral("both")) && undo() && gone(own);
    project->saveAnswer(before);
    return kept && expect(m_source.read(before.plainAnswer()), QStringLiteral("the text does not come back"));
}

bool EditJob::find() {
    m_driver.press(Qt::Key_F, Qt::ControlModifier);
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("findTerm"));
    if (!expect(field, QStringLiteral("nothing can be found in a text")))
        return false;
    m_driver.type(QStringLiteral("THE"));
    if (!shown(QStringLiteral("1 of 3")) ||
        !expect(m_source.selectedText() == QStringLiteral("The"), m_source.selectedText()))
        return false;
    m_driver.press(Qt::Key_Return, Qt::ShiftModifier);
    if (!shown(QStringLiteral("3 of 3")))
        return false;
    m_driver.press(Qt::Key_Return);
    m_driver.press(Qt::Key_Return);
    const bool stepped = shown(QStringLiteral("2 of 3")) && shoot(QStringLiteral("find"));
    m_driver.press(Qt::Key_Escape);
    return stepped && until([&] { return !field->isVisible(); }, QStringLiteral("Esc doesn't end finding")) &&
           expect(m_source.selectedText() == QStringLiteral("the"),
                  QStringLiteral("what was found is not selected"));
}

bool EditJob::zoom() {
    const auto size = [] {
        return KRNFile::instance()->getPreference(QStringLiteral("Source.FontSize"), 13).toInt();
    };
    m_driver.turnWheel(m_source.textItem(), 3, Qt::ControlModifier);
    m_driver.turnWheel(m_source.textItem(), -1, Qt::ControlModifier);
    return until([&] { return size() == 15; },
                 QStringLiteral("the wheel does not change the size of the text")) &&
           shoot(QStringLiteral("zoomed"));
}

bool EditJob::fillBlank() {
    m_driver.click(m_driver.itemNamed(QStringLiteral("addSource")));
    if (!click(QStringLiteral("New Blank Source")) ||
        !click(QStringLiteral("-- This source does not have any text yet. You can edit it by clicking on "
                              "this placeholder. --")) ||
        !click(QStringLiteral("Edit Source Text")) ||
        !until([&] { return m_editor.textItem() && m_editor.textItem()->hasActiveFocus(); },
               QStringLiteral("a blank text can't be edited")))
        return false;
    m_driver.type(QStringLiteral("Written <here>"));
    return shoot(QStringLiteral("blank")) && click(QStringLiteral("Save")) &&
           gone(QStringLiteral("Edit Source Text")) &&
           expect(m_source.read(QStringLiteral("Written <here>")),
                  QStringLiteral("what was written is lost"));
}

bool EditJob::refuseHtml() {
    QuestionAnswer answer = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>().value(1);
    answer.setAnswer(QStringLiteral("<p>Written on the <em>web</em></p>"));
    KRNFile::instance()->saveAnswer(answer);
    if (!expect(m_source.read(QStringLiteral("Written on the web")), QStringLiteral("the text is not shown")))
        return false;
    QString told;
    const bool answered =
        m_driver.during([&] { m_driver.clickAt(m_source.textItem(), QPointF(20, 8), Qt::RightButton); },
                        [&] {
                            told = m_driver.messageBoxText();
                            return m_driver.answerMessageBox(QStringLiteral("OK"));
                        });
    return expect(answered && told.contains(QStringLiteral("Web client")),
                  QStringLiteral("a text of the web can be edited"));
}

QList<QQuickItem*> EditJob::rows() {
    QList<QQuickItem*> rows = m_driver.itemsOfType(QStringLiteral("QuestionRow"));
    std::sort(rows.begin(), rows.end(), [](QQuickItem* a, QQuickItem* b) { return a->y() < b->y(); });
    return rows;
}

QStringList EditJob::questions() {
    QStringList texts;
    for (const QQuickItem* row : rows())
        texts << row->property("question").toString();
    return texts;
}

bool EditJob::askQuestions() {
    if (!expect(m_driver.click(m_driver.itemNamed(QStringLiteral("questionsTab"))),
                QStringLiteral("there is no tab for the questions")) ||
        !shown(QStringLiteral("New question:")))
        return false;
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("questionText"));
    const auto ask = [&](const QString& question) {
        m_driver.fill(field, question);
        return click(QStringLiteral("Save"));
    };
    // A new project has one question, without words.
    const QString where = QStringLiteral("Where <do> you live?");
    return m_driver.click(rows().value(0)) && shown(QStringLiteral("Editing question:")) && ask(where) &&
           until([&] { return questions() == QStringList{where}; },
                 QStringLiteral("a question has no words")) &&
           ask(where) && shown(QStringLiteral("Question already exists!")) &&
           shoot(QStringLiteral("exists")) && ask(QStringLiteral("And before?")) &&
           ask(QStringLiteral("What do you cook?")) &&
           until([&] { return questions().size() == 3; }, QStringLiteral("questions are missing"));
}

bool EditJob::orderQuestions() {
    const auto row = [&](int index) { return rows().value(index); };
    const auto button = [&](int index, int which) {
        QQuickItem* item = row(index);
        return m_driver.clickAt(item, QPointF(item->width() - 8 - 10 - (2 - which) * 30, item->height() / 2));
    };
    const QStringList asked = questions();
    const QStringList moved{asked[0], asked[2], asked[1]};
    const int before = undoIndex();
    if (!button(2, 0) ||
        !until([&] { return questions() == moved; }, QStringLiteral("a question does not move up")) ||
        !untilUndoIndex(before + 2) || !button(0, 0) || !button(2, 1) || !m_driver.click(row(1)) ||
        !shown(QStringLiteral("Editing question:")))
        return false;
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("questionText"));
    m_driver.fill(field, QStringLiteral("What do you eat?"));
    return shoot(QStringLiteral("questions")) && click(QStringLiteral("Save")) &&
           until([&] { return questions().value(1) == QStringLiteral("What do you eat?"); },
                 QStringLiteral("a question keeps its words")) &&
           untilUndoIndex(before + 3) && button(0, 2) &&
           until([&] { return questions().size() == 2; }, QStringLiteral("a question stays")) &&
           click(QStringLiteral("Undo")) &&
           until([&] { return questions().size() == 3; }, QStringLiteral("Undo does nothing")) &&
           click(QStringLiteral("Redo")) &&
           until([&] { return questions().size() == 2; }, QStringLiteral("Redo does nothing")) &&
           click(QStringLiteral("Close")) && gone(QStringLiteral("Edit Questions"));
}

bool EditJob::answerQuestion() {
    m_driver.click(m_driver.itemNamed(QStringLiteral("addSource")));
    if (!click(QStringLiteral("New Blank Source")) ||
        !until([&] { return m_driver.itemsOfType(QStringLiteral("AnswerPlaceholder")).size() == 2; },
               QStringLiteral("nothing says that there are no answers")) ||
        !shoot(QStringLiteral("unanswered")) ||
        !click(QStringLiteral("-- This question does not have an answer yet. You can edit the answer by "
                              "clicking on this text. --")) ||
        !click(QStringLiteral("Edit Answer")) ||
        !until([&] { return m_editor.textItem() && m_editor.textItem()->hasActiveFocus(); },
               QStringLiteral("an answer can't be edited")))
        return false;
    m_driver.type(QStringLiteral("Soup"));
    return shoot(QStringLiteral("answer")) && click(QStringLiteral("Save")) && shown(QStringLiteral("Q:")) &&
           until(
               [] {
                   const auto answers = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>();
                   return std::any_of(answers.cbegin(), answers.cend(), [](const QuestionAnswer& answer) {
                       return answer.plainAnswer() == QStringLiteral("Soup");
                   });
               },
               QStringLiteral("the answer is lost")) &&
           shoot(QStringLiteral("answered"));
}
