#include "Job.h"

#include "link/DataHelper.h"
#include "project/KRNFile.h"

#include <algorithm>

namespace {

const QString belonging = "Belonging"_s;
const QString food = "Food"_s;

// As one that was edited elsewhere is stored: a line by a tag, marks in one another, letters of two units.
const QString html = QStringLiteral(
    "<body style=\"white-space: pre-wrap;\">\n"
    "🌻 &lt;laughs&gt; we came<br>in <b>spring <i>to the <u>garden</u></i></b> 🥕 and stayed.\n"
    "\tThe  soup was hot &amp; good.\n</body>");
const QString text = "🌻 <laughs> we came\nin spring to the garden 🥕 and stayed.\n"
                     "\tThe  soup was hot & good."_s;
const QString garden = "to the garden 🥕 and"_s;
const QString soup = "soup was hot"_s;
const QString edited = "Then 🌻 <laughs>\nin spring to the big <&> garden 🥕 and stayed.\n"
                       "\tThe  soup was hot & good."_s;
const QString editedGarden = "to the big <&> garden 🥕 and"_s;

/// Edits texts with coded passages around and in the edits, finds words in them, and keeps the questions of a
/// project.
class EditJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        if (!signIn())
            return false;
        if (run == "questions"_s)
            return createProject(path(run + ".krn"_s), true) && askQuestions() && orderQuestions() &&
                   answerQuestion();
        return createProject(path(run + ".krn"_s)) && makeSource() && code(garden, belonging) &&
               code(soup, food) && stored(text, garden, soup) && editAndSave() && goBackAndForth() &&
               keepBoth() && find() && zoom() && fillBlank() && refuseHtml();
    }

private:
    bool makeSource() {
        if (!importTexts({{"Garden"_s, "x"_s}}) || !addKerno(belonging, QPointF(200, 200)) || !addKerno(food))
            return false;
        QuestionAnswer answer = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>().value(0);
        answer.setAnswer(html);
        KRNFile::instance()->saveAnswer(answer);
        return reads(text);
    }

    // What the project has stored: the source's text, and in it what is coded into the two kernos.
    bool stored(const QString& words, const QString& first, const QString& second) {
        const auto held = [&] {
            const auto answer = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>().value(0);
            return QStringList{answer.plainAnswer()} + coded(belonging) + coded(food);
        };
        return untilIs("stored is"_s, QStringList{words, first, second}, held) && reads(words) &&
               untilIs("the stripes"_s, 2, [&] { return m_source.stripes().size(); });
    }

    bool openEditor() {
        return m_driver.clickAt(m_source.textItem(), m_source.rectangleAt(4).center(), Qt::RightButton) &&
               shoot("menu"_s) && click("Edit Source Text"_s) && untilFocus("editedText"_s);
    }

    // Words before the first coding, inside of it and over the start of the second change; a mark comes.
    bool editAndSave() {
        if (!openEditor() || !expect(m_editor.read(text), "the editor has another text"_s) ||
            !until([&] { return m_editor.select("to the"_s).isEmpty(); }, "nothing can be selected"_s))
            return false;
        clickOn("markUnderline"_s);
        m_driver.press(Qt::Key_Right);
        m_driver.type(" big <&>"_s);
        if (!until([&] { return m_editor.select(" we came"_s).isEmpty(); }, "nothing can be selected"_s))
            return false;
        m_driver.press(Qt::Key_Delete);
        m_driver.press(Qt::Key_Home, Qt::ControlModifier);
        m_driver.type("Then "_s);
        const int before = undoIndex();
        // Each beside its own line, so in one column.
        const auto stripesFollow = [&] {
            int found = 0;
            for (const QQuickItem* item : m_driver.itemsOfType("HighlightsBar"_s).value(1)->childItems()) {
                if (item->isVisible() && item->property("highlightId").toInt() > 0)
                    found += item->x() == 0 ? 1 : 100;
            }
            return found == 2;
        };
        return until(stripesFollow, "the editor has no stripes"_s) && shoot("edited"_s) && click("Save"_s) &&
               gone("Edit Source Text"_s) && untilUndoIndex(before + 1) &&
               stored(edited, editedGarden, soup) && shoot("saved"_s);
    }

    bool goBackAndForth() {
        return undo() && stored(text, garden, soup) && redo() && stored(edited, editedGarden, soup);
    }

    bool keepBoth() {
        KRNFile* const project = KRNFile::instance();
        const QuestionAnswer before = project->dataHelper()->findAll<QuestionAnswer>().value(0);
        QuestionAnswer others = before;
        others.setAnswer("Rewritten."_s);
        if (!openEditor())
            return false;
        m_driver.press(Qt::Key_Home, Qt::ControlModifier);
        m_driver.type("Mine: "_s);
        project->saveAnswer(others);
        const QString own = "Garden (version of Ada Berger)"_s;
        const bool kept = click("Save as New Source"_s) && gone("Edit Source Text"_s) && shown(own) &&
                          reads("Mine: "_s + before.plainAnswer()) &&
                          expect(project->answer(before.id()).plainAnswer() == others.plainAnswer(),
                                 "somebody's text is lost"_s) &&
                          shoot("both"_s) && undo() && gone(own);
        project->saveAnswer(before);
        return kept && reads(before.plainAnswer());
    }

    bool find() {
        m_driver.press(Qt::Key_F, Qt::ControlModifier);
        if (!untilFocus("findTerm"_s))
            return false;
        m_driver.type("THE"_s);
        if (!shown("1 of 3"_s) || !expect(m_source.selectedText() == "The"_s, m_source.selectedText()))
            return false;
        m_driver.press(Qt::Key_Return, Qt::ShiftModifier);
        if (!shown("3 of 3"_s))
            return false;
        m_driver.press(Qt::Key_Return);
        m_driver.press(Qt::Key_Return);
        const bool stepped = shown("2 of 3"_s) && shoot("find"_s);
        m_driver.press(Qt::Key_Escape);
        return stepped &&
               until([&] { return !m_driver.itemNamed("findTerm"_s, 0); }, "Esc doesn't end finding"_s) &&
               expect(m_source.selectedText() == "the"_s, "what was found is not selected"_s);
    }

    bool zoom() {
        const auto size = [] { return KRNFile::instance()->getPreference("Source.FontSize"_s, 13).toInt(); };
        m_driver.turnWheel(m_source.textItem(), 3, Qt::ControlModifier);
        m_driver.turnWheel(m_source.textItem(), -1, Qt::ControlModifier);
        return until([&] { return size() == 15; }, "the wheel does not change the size of the text"_s) &&
               shoot("zoomed"_s);
    }

    bool fillBlank() {
        if (!addMenu("New Blank Source"_s) ||
            !click("-- This source does not have any text yet. You can edit it by clicking on "
                   "this placeholder. --"_s) ||
            !click("Edit Source Text"_s) || !untilFocus("editedText"_s))
            return false;
        m_driver.type("Written <here>"_s);
        return shoot("blank"_s) && click("Save"_s) && gone("Edit Source Text"_s) && reads("Written <here>"_s);
    }

    bool refuseHtml() {
        QuestionAnswer answer = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>().value(1);
        answer.setAnswer("<p>Written on the <em>web</em></p>"_s);
        KRNFile::instance()->saveAnswer(answer);
        if (!reads("Written on the web"_s))
            return false;
        return answering(
            [&] { m_driver.clickAt(m_source.textItem(), QPointF(20, 8), Qt::RightButton); }, "OK"_s,
            "This source was created in the Web client, and can't be edited here without losing formatting."_s);
    }

    // Of the dialog of the questions, from top to bottom.
    QList<QQuickItem*> rows() {
        QList<QQuickItem*> rows = m_driver.itemsOfType("QuestionRow"_s);
        std::sort(rows.begin(), rows.end(), [](QQuickItem* a, QQuickItem* b) { return a->y() < b->y(); });
        return rows;
    }

    QStringList questions() {
        QStringList texts;
        for (const QQuickItem* row : rows())
            texts << row->property("question").toString();
        return texts;
    }

    bool untilCount(int count) {
        return untilIs("the questions"_s, count, [&] { return questions().size(); });
    }

    bool askQuestions() {
        if (!clickOn("questionsTab"_s) || !shown("New question:"_s))
            return false;
        const auto ask = [&](const QString& question) {
            return fill("questionText"_s, question) && click("Save"_s);
        };
        // A new project has one question, without words.
        const QString where = "Where <do> you live?"_s;
        return m_driver.click(rows().value(0)) && shown("Editing question:"_s) && ask(where) &&
               until([&] { return questions() == QStringList{where}; }, "a question has no words"_s) &&
               ask(where) && shown("Question already exists!"_s) && shoot("exists"_s) &&
               ask("And before?"_s) && ask("What do you cook?"_s) && untilCount(3);
    }

    bool orderQuestions() {
        const auto row = [&](int index) { return rows().value(index); };
        const auto button = [&](int index, int which) {
            QQuickItem* item = row(index);
            return m_driver.clickAt(item,
                                    QPointF(item->width() - 8 - 10 - (2 - which) * 30, item->height() / 2));
        };
        const QStringList asked = questions();
        const QStringList moved{asked[0], asked[2], asked[1]};
        const int before = undoIndex();
        if (!button(2, 0) || !until([&] { return questions() == moved; }, "a question does not move up"_s) ||
            !untilUndoIndex(before + 2) || !button(0, 0) || !button(2, 1) || !m_driver.click(row(1)) ||
            !shown("Editing question:"_s))
            return false;
        if (!fill("questionText"_s, "What do you eat?"_s))
            return false;
        return shoot("questions"_s) && click("Save"_s) &&
               until([&] { return questions().value(1) == "What do you eat?"_s; },
                     "a question keeps its words"_s) &&
               untilUndoIndex(before + 3) && button(0, 2) && untilCount(2) && click("Undo"_s) &&
               untilCount(3) && click("Redo"_s) && untilCount(2) && click("Close"_s) &&
               gone("Edit Questions"_s);
    }

    bool answerQuestion() {
        if (!addMenu("New Blank Source"_s) ||
            !until([&] { return m_driver.itemsOfType("AnswerPlaceholder"_s).size() == 2; },
                   "nothing says that there are no answers"_s) ||
            !shoot("unanswered"_s) ||
            !click("-- This question does not have an answer yet. You can edit the answer by "
                   "clicking on this text. --"_s) ||
            !click("Edit Answer"_s) || !untilFocus("editedText"_s))
            return false;
        m_driver.type("Soup"_s);
        return shoot("answer"_s) && click("Save"_s) && shown("Q:"_s) &&
               until(
                   [] {
                       const auto answers = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>();
                       return std::any_of(answers.cbegin(), answers.cend(), [](const QuestionAnswer& answer) {
                           return answer.plainAnswer() == "Soup"_s;
                       });
                   },
                   "the answer is lost"_s) &&
               shoot("answered"_s);
    }

    SourcePage m_editor{m_driver, "editedText"_s};
};

const Played<EditJob> played{"edit"_s, {"text"_s, "questions"_s}};

}  // namespace
