#include "models/HighlightsModel.h"
#include "models/MemosModel.h"
#include "project/KRNFile.h"
#include "records/ContrastColor.h"
#include "tests_support/TestMain.h"
#include "text/EditShift.h"
#include "text/HighlightPainting.h"
#include "text/KernovaTextEdit.h"
#include "text/KernovaWindow.h"
#include "text/SourceHighlighter.h"

#include <QCloseEvent>
#include <QQuickTextDocument>
#include <QRandomGenerator>
#include <QResizeEvent>
#include <QTextBlock>
#include <private/qquickevents_p_p.h>

namespace {

const QString text = "0123456789\nabcdefghij"_s;
const QColor red(200, 0, 0);
const QColor green(0, 200, 0);

Highlight highlight(int id, int start, int end, const QColor& color) {
    return Highlight(id, 1, 3, 2, color, start, end - start, end, {}, {}, 0, 0, 0, false);
}

}  // namespace

/// The text item with its painter and its models, without a link to a service; and the window it lies in.
class tst_KernovaTextEdit : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_file = std::make_unique<KRNFile>();
        m_edit = std::make_unique<KernovaTextEdit>();
        m_edit->setWidth(400);
    }

    void cleanup() {
        m_edit.reset();
        m_file.reset();
    }

    void anEditableTextIsAnnouncedInOrder() {
        const QStringList names = recorded([&] { m_edit->setAnswer(2, 3, "one"_s, 4); });
        QCOMPARE(names, QStringList({"text", "loaded", "preloaded", "text", "question", "source", "offset"}));
        QCOMPARE(m_edit->questionId(), 2);
        QCOMPARE(m_edit->sourceId(), 3);
        QCOMPARE(m_edit->sourceOffset(), 4);
        QCOMPARE(m_edit->length(), 3);
    }

    void theSameAnswerOnlyLoadsAgain() {
        show({highlight(1, 0, 4, red)});
        for (const QString& same : {text, m_edit->convertDocToRichtText()}) {
            QStringList names = recorded([&] { m_edit->setAnswer(2, 3, same, 0); });
            names.removeAll("text"_s);  // comes with every repainting of a whole document
            QCOMPARE(names, QStringList{"loaded"});
            QCOMPARE(highlights()->rowCount(), 1);
            QCOMPARE(painted(), "rrrr......|.........."_s);
        }
    }

    void anAnswerIsLoadedWhenBothBarsAre() {
        m_edit->setReadOnly(true);
        m_edit->setAnswer(2, 3, text, 0);
        QVERIFY(!m_edit->highlighter()->isEnabled());
        QSignalSpy loaded(m_edit.get(), &KernovaTextEdit::answerLoaded);
        memos()->doReloadData({}, 3, 2);
        QCOMPARE(loaded.count(), 0);
        highlights()->doReloadData({}, 3, 2);
        QCOMPARE(loaded.count(), 1);
        QVERIFY(m_edit->highlighter()->isEnabled());
    }

    void aStaleListDoesNotPaint() {
        m_edit->setReadOnly(true);
        m_edit->setAnswer(2, 3, text, 0);
        emit highlights()->modelReady(8, 2, 0, 500);
        QVERIFY(!m_edit->highlighter()->isEnabled());
        emit highlights()->modelReady(3, 2, 0, text.size());
        QVERIFY(m_edit->highlighter()->isEnabled());
    }

    void passagesArePainted() {
        show({highlight(1, 0, 4, red), highlight(2, 6, 13, green)});
        QCOMPARE(painted(), "rrrr..gggg|gg........"_s);
        show({highlight(1, 0, 4, red), highlight(2, 3, 8, green), highlight(3, 14, 16, green)});
        QCOMPARE(painted(), "oooooooo..|...gg....."_s);
        show({});
        QCOMPARE(painted(), "..........|.........."_s);
    }

    // What begins before a run of another look would be drawn again with it, and its letters be thick.
    void paintEndsWhereTheLookOfTheTextChanges() {
        show({highlight(1, 2, 17, red)}, "some <b>bold</b> and <i>slanted</i>"_s);
        QCOMPARE(painted(), "..rrrrrrrrrrrrrrr....."_s.left(21));
        const QTextBlock block = document()->begin();
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            QTextCursor cursor(block);
            cursor.setPosition(range.start + 1);
            const QTextCharFormat look = cursor.charFormat();
            cursor.setPosition(range.start + range.length);
            QCOMPARE(cursor.charFormat(), look);
        }
        QCOMPARE(block.layout()->formats().size(), 4);
    }

    void aSavedPassageRepaintsItsRangeAlone() {
        Highlight second = highlight(2, 12, 15, green);
        show({second});
        second.setColor(red);  // not announced: the second block keeps its colour until it is painted anew
        const Highlight first = highlight(1, 2, 5, red);
        emit highlights()->highlightAdded(first, {2, 5});
        QCOMPARE(painted(), "..rrr.....|.ggg......"_s);
        emit highlights()->highlightRemoved(first, {2, 5});
        QCOMPARE(painted(), "..........|.ggg......"_s);
        emit highlights()->colorsChanged();
        QCOMPARE(painted(), "..........|.rrr......"_s);
        emit highlights()->highlightRemoved(second, {12, 15});
        QCOMPARE(painted(), "..........|.........."_s);
    }

    void thePointedAtPassageIsOnTop() {
        show({highlight(1, 0, 6, red), highlight(2, 4, 8, green), highlight(3, 12, 14, green)});
        QSignalSpy changed(m_edit->highlighter(), &SourceHighlighter::currentHighlightChanged);
        m_edit->setCurrentHighlight(1);
        QCOMPARE(painted(), "rrrrrroo..|.gg......."_s);
        m_edit->setCurrentHighlight(2);
        QCOMPARE(painted(), "oooogggg..|.gg......."_s);
        m_edit->setCurrentHighlight(3);
        QCOMPARE(painted(), "oooooooo..|.gg......."_s);
        QCOMPARE(m_edit->currentHighlight(), 3);
        m_edit->setCurrentHighlight(99);
        QCOMPARE(m_edit->currentHighlight(), -1);
        QCOMPARE(changed.count(), 4);
        m_edit->setCurrentHighlight(-1);
        QCOMPARE(changed.count(), 4);
    }

    void paintingLeavesTextSelectionAndUndoAlone() {
        show({highlight(1, 0, 6, red)});
        m_edit->select(3, 8);
        m_edit->highlighter()->rehighlight();
        QCOMPARE(m_edit->selectionStart(), 3);
        QCOMPARE(m_edit->selectionEnd(), 8);
        QCOMPARE(document()->toPlainText(), text);
        QVERIFY(!document()->isUndoAvailable());
        QCOMPARE(m_edit->convertDocToRichtText(),
                 "<body style=\"white-space: pre-wrap;\">\n%1\n</body>"_s.arg(text));
    }

    // What is repainted after a change is told from the change; here, from nothing.
    void editsAndNewListsArePaintedAsFromTheStart() {
        QRandomGenerator random(3);
        QList<Highlight> list;
        const auto anyPassages = [&] {
            list.clear();
            for (int id = 1 + random.bounded(8); id > 0; --id) {
                const int start = random.bounded(document()->characterCount() - 1);
                const int end = start + 1 + random.bounded(document()->characterCount() - 1 - start);
                list << highlight(id, start, qMin(end, start + 40), random.bounded(2) == 0 ? red : green);
            }
            std::sort(list.begin(), list.end(), highlightLessThan);
        };
        for (int round = 0; round < 400; ++round) {
            show({}, (text + QLatin1Char('\n')).repeated(6));
            anyPassages();
            m_edit->highlighter()->setModel(list);
            for (int step = 0; step < 8; ++step) {
                if (random.bounded(3) == 0)
                    QCoreApplication::processEvents();
                if (random.bounded(4) == 0) {
                    anyPassages();
                    m_edit->highlighter()->setModel(list);
                    continue;
                }
                QTextCursor cursor(document());
                cursor.setPosition(random.bounded(document()->characterCount() - 1));
                const int end =
                    qMin(document()->characterCount() - 1, cursor.position() + random.bounded(30));
                const edits::Edit edit{cursor.position(), end - cursor.position(), random.bounded(5)};
                cursor.beginEditBlock();
                cursor.setPosition(end, QTextCursor::KeepAnchor);
                cursor.insertText("xy\nz"_s.left(edit.added));
                cursor.endEditBlock();
                if (edit.removed != edit.added)
                    edits::shift(list, edit);
                edits::join(list);
            }
            m_edit->highlighter()->setModel(list);
            QCoreApplication::processEvents();
            const QString after = painted();
            m_edit->highlighter()->rehighlight();
            QCOMPARE(after, painted());
        }
    }

    void aDisabledPainterTakesItsColoursAway() {
        show({highlight(1, 0, 6, red)});
        m_edit->highlighter()->setEnabled(false);
        QCOMPARE(painted(), "..........|.........."_s);
        m_edit->highlighter()->setEnabled(true);
        QCOMPARE(painted(), "rrrrrr....|.........."_s);
        m_edit->highlighter()->setTarget(nullptr);
        QCOMPARE(painted(), "..........|.........."_s);
    }

    void anAnswerWithoutIdsIsForgotten() {
        show({highlight(1, 0, 6, red)});
        m_edit->rehighlight();
        QCOMPARE(painted(), "rrrrrr....|.........."_s);
        m_edit->highlighter()->setSourceId(-1);
        m_edit->rehighlight();
        m_edit->highlighter()->rehighlight();
        QCOMPARE(painted(), "..........|.........."_s);
    }

    void resizingLastsUntilItSettles() {
        KernovaWindow window;
        QSignalSpy changed(&window, &KernovaWindow::isResizingChanged);
        for (int width : {100, 200, 300}) {
            QResizeEvent event(QSize(width, 50), QSize(1, 1));
            QCoreApplication::sendEvent(&window, &event);
            QVERIFY(window.isResizing());
        }
        QCOMPARE(changed.count(), 1);
        QVERIFY(changed.wait());
        QVERIFY(!window.isResizing());
        QCOMPARE(changed.count(), 2);
    }

    void aCloseCanBeRefused() {
        KernovaWindow window;
        bool accept = false;
        connect(&window, &KernovaWindow::windowClosing,
                [&](QQuickCloseEvent* close) { close->setAccepted(accept); });
        QCloseEvent refused;
        QCoreApplication::sendEvent(&window, &refused);
        QVERIFY(!refused.isAccepted());
        accept = true;
        QCloseEvent accepted;
        QCoreApplication::sendEvent(&window, &accepted);
        QVERIFY(accepted.isAccepted());
    }

private:
    QTextDocument* document() const { return m_edit->textDocument()->textDocument(); }
    HighlightsModel* highlights() const { return qobject_cast<HighlightsModel*>(m_edit->highlightsModel()); }
    MemosModel* memos() const { return qobject_cast<MemosModel*>(m_edit->memosModel()); }

    /// Shows the text as the answer of source 3 to question 2, with its highlights.
    void show(const QList<Highlight>& list, const QString& shown = text) {
        m_edit->setReadOnly(true);
        m_edit->setAnswer(2, 3, "<body style=\"white-space: pre-wrap;\">%1</body>"_s.arg(shown), 0);
        highlights()->doReloadData(list, 3, 2);
        memos()->doReloadData({}, 3, 2);
        QCoreApplication::processEvents();
    }

    /// A letter for each character: r and g for the two colours, o for the overlap, . for none; | between
    /// blocks.
    QString painted() const {
        QStringList blocks;
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            QString letters(block.length() - 1, QLatin1Char('.'));
            for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
                const QColor background = range.format.background().color();
                const char letter = background == red                        ? 'r'
                                    : background == green                    ? 'g'
                                    : background == painting::overlapColor() ? 'o'
                                                                             : '?';
                if (range.format.foreground().color() != contrastFontColor(background))
                    return "wrong text colour"_s;
                letters.replace(range.start, range.length, QString(range.length, QLatin1Char(letter)));
            }
            blocks << letters;
        }
        return blocks.join(QLatin1Char('|'));
    }

    /// The names of the item's signals during the action; repetitions of one count once.
    QStringList recorded(const std::function<void()>& action) {
        QStringList names;
        QObject receiver;
        const auto record = [&](auto signal, const QString& name) {
            connect(m_edit.get(), signal, &receiver, [&names, name] {
                if (names.isEmpty() || names.last() != name)
                    names << name;
            });
        };
        record(&KernovaTextEdit::textChanged, "text"_s);
        record(&KernovaTextEdit::questionIdChanged, "question"_s);
        record(&KernovaTextEdit::sourceIdChanged, "source"_s);
        record(&KernovaTextEdit::offsetChanged, "offset"_s);
        record(&KernovaTextEdit::answerLoaded, "loaded"_s);
        record(&KernovaTextEdit::answerPreloaded, "preloaded"_s);
        action();
        return names;
    }

    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<KernovaTextEdit> m_edit;
};

KERNOVA_GUI_TEST_MAIN(tst_KernovaTextEdit)
#include "tst_kernovatextedit.moc"
