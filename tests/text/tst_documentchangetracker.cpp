#include "../undo/UndoProject.h"
#include "models/HighlightsModel.h"
#include "records/RichTextFragment.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"
#include "text/DisplayText.h"
#include "text/DocumentChangeTracker.h"
#include "text/KernovaTextEdit.h"

#include <QQuickTextDocument>
#include <QTextCursor>
#include <QTextDocument>
#include <map>

/// The editing of a text with its highlights: the arithmetic against its rules, and whole editings at the
/// real service.
class tst_DocumentChangeTracker : public QObject {
    Q_OBJECT

private slots:
    void highlightsFollowAnEdit();
    void editingAndSavingLosesNothing_data();
    void editingAndSavingLosesNothing();
    void whatOthersDoMeanwhileIsKept();
};

namespace {

struct Range {
    int kerno, start, end;
    bool operator==(const Range& o) const { return kerno == o.kerno && start == o.start && end == o.end; }
};
using Ranges = QVector<Range>;

bool lessThan(const Range& a, const Range& b) {
    return std::make_tuple(a.start, -a.end, a.kerno) < std::make_tuple(b.start, -b.end, b.kerno);
}

/// "kerno:start-end" of each.
QString written(Ranges ranges) {
    std::sort(ranges.begin(), ranges.end(), lessThan);
    QStringList list;
    for (const Range& r : ranges)
        list << "%1:%2-%3"_s.arg(r.kerno).arg(r.start).arg(r.end);
    return list.join(QLatin1Char(' '));
}

Ranges rangesOf(const QList<Highlight>& highlights) {
    Ranges ranges;
    for (const Highlight& h : highlights)
        ranges.append({h.kernoId(), h.start(), h.end()});
    return ranges;
}

/// The rules for one highlight, in another form: where it begins and ends after the edit; nothing left gives
/// an empty range.
Range follow(Range r, int at, int removed, int added) {
    const int reach = at + std::abs(added - removed);
    const int moved = added - removed;
    if (r.end <= at)
        return r;
    if (reach <= r.start || (removed == 0 && at <= r.start))
        return {r.kerno, r.start + moved, r.end + moved};
    if (r.start > at) {
        if (r.end < at + std::max(added, removed))
            return r;
        const int start = at + added;
        return {r.kerno, start, start + (r.end - r.start) + std::abs(start - r.start) - removed};
    }
    return {r.kerno, r.start, r.end < reach ? at : r.end + moved};
}

Ranges joined(Ranges all) {
    all.erase(std::remove_if(all.begin(), all.end(), [](const Range& r) { return r.end <= r.start; }),
              all.end());
    std::sort(all.begin(), all.end(), lessThan);
    for (int i = 0; i < all.size(); ++i) {
        for (int j = i + 1; j < all.size() && all[j].start <= all[i].end;) {
            if (all[j].kerno == all[i].kerno) {
                all[i].end = all[j].end;
                all.remove(j);
            } else {
                ++j;
            }
        }
    }
    return all;
}

/// Random text of what is awkward: marks and references as people write them, blanks and ends of lines of all
/// kinds, pairs of units, text from right to left, and what answers are cleaned of.
QString awkward(QRandomGenerator& random, int pieces) {
    static const QStringList alphabet{"<"_s,
                                      "<b>"_s,
                                      "</i>"_s,
                                      "&"_s,
                                      "&amp;"_s,
                                      "  "_s,
                                      "\t"_s,
                                      "\n"_s,
                                      "\n\n"_s,
                                      "\u00a0"_s,
                                      "\u2028"_s,
                                      "\u2029"_s,
                                      "\u05e9\u05dc\u05d5\u05dd"_s,
                                      "\U0001F331"_s,
                                      "\u07ec"_s,
                                      "\u00e2\u0080\u00a8"_s,
                                      "\u000c"_s,
                                      "\u0007"_s,
                                      "word"_s,
                                      "e\u0301"_s,
                                      "-->"_s};
    QString text;
    while (pieces-- > 0)
        text += alphabet.at(random.bounded(alphabet.size()));
    return text;
}

/// For each character its marks.
QString marksOf(QTextDocument* document) {
    QString marks;
    QTextCursor cursor(document);
    while (cursor.movePosition(QTextCursor::NextCharacter)) {
        const QTextCharFormat format = cursor.charFormat();
        if (!document->characterAt(cursor.position() - 1).isSpace())
            marks += QString::number((format.fontWeight() > QFont::Normal) + 2 * format.fontItalic() +
                                     4 * format.fontUnderline());
    }
    return marks;
}

}  // namespace

void tst_DocumentChangeTracker::highlightsFollowAnEdit() {
    QRandomGenerator random(9);
    const auto anyHighlight = [&random](int id) {
        const int start = random.bounded(30);
        return undotest::highlight(id, 1 + random.bounded(3), 1, 1, start, start + 1 + random.bounded(15));
    };
    for (int round = 0; round < 20000; ++round) {
        QList<Highlight> one{anyHighlight(1)};
        const Range before = rangesOf(one).first();
        const int at = random.bounded(40);
        const int removed = random.bounded(2) * random.bounded(20);
        const int added = random.bounded(2) * random.bounded(20);
        const bool changed = edits::shift(one, {at, removed, added});
        QCOMPARE(written(rangesOf(one)), written(joined({follow(before, at, removed, added)})));
        // What stays where it is isn't stored anew.
        if (removed != added)
            QCOMPARE(changed, one.isEmpty() || !(rangesOf(one).first() == before));

        QList<Highlight> some;
        for (int id = 1 + random.bounded(5); id > 0; --id)
            some << anyHighlight(id);
        std::sort(some.begin(), some.end(), highlightLessThan);
        const Ranges apart = rangesOf(some);
        edits::join(some);
        QCOMPARE(written(rangesOf(some)), written(joined(apart)));
    }
}

void tst_DocumentChangeTracker::editingAndSavingLosesNothing_data() {
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 12; ++seed)
        QTest::addRow("%d", seed) << seed;
}

void tst_DocumentChangeTracker::editingAndSavingLosesNothing() {
    QFETCH(int, seed);
    QRandomGenerator random(seed);
    const auto below = [&random](int limit) { return limit > 0 ? random.bounded(limit) : 0; };
    UndoProject project;
    QVERIFY2(project.open(), qPrintable(project.error));
    QuestionAnswer answer = project.file.answerModel()->answer(1, 1);
    // What the service gives as a line feed is stored as one.
    const QString first = awkward(random, 40).replace(QChar(0x2028), QLatin1Char('\n'));
    answer.setAnswer(richtext::fragment(richtext::escaped(first) + "<b>b<i>i</i></b><u>u</u>"_s + "x"_s));
    project.undo.updateAnswer(answer);
    for (int i = 0; i < 8; ++i) {
        Highlight highlight;
        const int start = below(answer.answerLength() - 1);
        const int length = 1 + below(std::min(12, answer.answerLength() - start - 1));
        project.undo.addHighlight(
            Highlight(-1, 1 + below(4), 1, 1, {}, start, length, start + length, {}, {}, 0, 0, 0, false));
    }
    const QJsonObject before = project.json();

    KernovaTextEdit text;
    text.setWidth(300);
    text.setAnswer(1, 1, project.file.answerModel()->answer(1, 1).answer(), 0);
    QTextDocument* const document = text.textDocument()->textDocument();
    DocumentChangeTracker tracker;
    tracker.setTarget(&text);
    tracker.setUndoManager(&project.undo);
    tracker.loadInitialHighlights();
    tracker.setTrackChanges(true);
    const QString stored0 = project.file.answerModel()->answer(1, 1).plainAnswer();
    QCOMPARE(plainTextOf(document), QString(stored0).replace(QChar(0x2029), QLatin1Char('\n')));
    const int steps = project.undo.index();
    tracker.saveChanges();
    QCOMPARE(project.undo.index(), steps);

    QObject receiver;
    Ranges told = rangesOf(project.file.highlights(1, 1));
    std::map<int, Ranges> atStep{{0, told}};
    connect(&tracker, &DocumentChangeTracker::freshHighlightsAvailable, &receiver,
            [&](const QList<Highlight>& list) { told = rangesOf(list); });
    const Ranges initial = told;
    Ranges expected = told;
    bool goesBack = false;
    connect(document, &QTextDocument::contentsChange, &receiver, [&](int at, int removed, int added) {
        const int undoSteps = document->availableUndoSteps();
        const Ranges now = std::prev(atStep.upper_bound(goesBack ? undoSteps : 1000000))->second;
        atStep.erase(atStep.lower_bound(goesBack ? undoSteps + 1 : std::max(1, undoSteps)), atStep.end());
        if (removed == added)
            return;
        Ranges moved = now;
        for (Range& r : moved)
            r = goesBack ? r : follow(r, at, removed, added);
        atStep[undoSteps] = goesBack ? now : joined(moved);
        // What joins while nothing moves is told with the next move.
        if (goesBack || !(moved == now))
            expected = atStep[undoSteps];
    });
    for (int i = 0; i < 60; ++i) {
        const int length = document->characterCount() - 1;
        const auto whole = [&](int at) { return at - document->characterAt(at).isLowSurrogate(); };
        const int from = whole(below(length + 1));
        const int to = whole(std::min(length, from + below(6)));
        QTextCursor cursor(document);
        cursor.setPosition(from);
        const int action = below(7);
        goesBack = action == 0;
        if (action <= 1) {
            action == 0 ? text.undo() : text.redo();
        } else if (action == 2) {
            text.setBold(from, to);
        } else if (action == 3) {
            text.setUnderline(from, to);
        } else {
            cursor.setPosition(to, action == 4 ? QTextCursor::MoveAnchor : QTextCursor::KeepAnchor);
            action == 5 ? cursor.removeSelectedText() : cursor.insertText(awkward(random, 1 + below(3)));
        }
        QCOMPARE(written(told), written(expected));
    }
    const QString edited = plainTextOf(document);
    const QString marks = marksOf(document);
    tracker.saveChanges();
    const QJsonObject after = project.json();
    QuestionAnswer stored;
    for (const QuestionAnswer& read : project.file.dataHelper()->findAll<QuestionAnswer>()) {
        if (read.id() == answer.id())
            stored = read;
    }
    QCOMPARE(stored.plainAnswer(), edited);
    QTextDocument shown;
    shown.setHtml(displayHtml(stored.answer()));
    QCOMPARE(marksOf(&shown), marks);
    QCOMPARE(written(rangesOf(project.file.highlights(1, 1))), written(told));

    goesBack = true;
    while (document->isUndoAvailable())
        text.undo();
    QCOMPARE(written(told), written(initial));
    project.undo.undo();
    QCOMPARE(undotest::difference(before, project.json()), QString());
    project.undo.redo();
    QCOMPARE(undotest::difference(after, project.json()), QString());
}

void tst_DocumentChangeTracker::whatOthersDoMeanwhileIsKept() {
    UndoProject project;
    QVERIFY2(project.open(), qPrintable(project.error));
    KRNFile& file = project.file;
    const auto stored = [&] { return file.dataHelper()->findAll<QuestionAnswer>().value(0).plainAnswer(); };
    const auto codedWith = [&](int kernoId) {
        QStringList words;
        for (const Highlight& h : file.highlights(1, 1)) {
            if (h.kernoId() == kernoId)
                words << stored().mid(h.start(), h.length());
        }
        return words;
    };
    KernovaTextEdit text;
    DocumentChangeTracker tracker;
    tracker.setTarget(&text);
    tracker.setUndoManager(&project.undo);
    const auto open = [&] {
        tracker.setTrackChanges(false);
        text.setAnswer(1, 1, file.answerModel()->answer(1, 1).answer(), 0);
        tracker.loadInitialHighlights();
        tracker.setTrackChanges(true);
    };
    const auto insert = [&](int at, const QString& words) {
        QTextCursor cursor(text.textDocument()->textDocument());
        cursor.setPosition(at);
        cursor.insertText(words);
    };
    const QString before = stored();
    const QList<Highlight> ours{file.highlight(2), file.highlight(3), file.highlight(4)};
    // Somebody codes, takes a coding back, codes another with something else and has one reach further: one
    // by one, or all at once.
    for (const bool atOnce : {false, true}) {
        open();
        insert(0, "Gone."_s);
        QTextCursor all(text.textDocument()->textDocument());
        all.select(QTextCursor::Document);
        all.removeSelectedText();
        while (text.textDocument()->textDocument()->isUndoAvailable())
            text.undo();
        insert(0, "Well: "_s);
        insert(text.length(), " So."_s);
        const Highlight added = undotest::highlight(100, 4, 1, 1, 40, 50);
        Highlight recoded = file.highlight(2);
        recoded.setKernoId(3);
        const Highlight grown = undotest::highlight(3, 5, 1, 1, 5, 18);
        if (atOnce) {
            QVERIFY(file.batchSaveHighlights({added, recoded, grown}) &&
                    file.batchDeleteHighlights({file.highlight(4)}));
        } else {
            file.saveHighlight(added);
            file.deleteHighlight(file.highlight(4));
            file.saveHighlight(recoded);
            file.saveHighlight(grown);
        }
        project.settle();
        QVERIFY(!tracker.isOutdated());
        tracker.saveChanges();
        project.settle();
        QCOMPARE(stored(), "Well: "_s + before + " So."_s);
        QCOMPARE(codedWith(4), QStringList{before.mid(40, 10)});
        QCOMPARE(codedWith(3), QStringList{before.mid(20, 10)});
        QCOMPARE(codedWith(5), QStringList{before.mid(5, 13)});
        project.undo.undo();
        project.settle();
        QCOMPARE(codedWith(4), QStringList{before.mid(40, 10)});
        QCOMPARE(codedWith(5), QStringList{before.mid(5, 13)});
        if (!atOnce)
            QVERIFY(file.batchSaveHighlights(ours) && file.batchDeleteHighlights({added}));
        project.settle();
    }

    // Of two codings that an edit joins to one, somebody deletes, recodes or moves one: the other stands
    // alone.
    project.undo.undo();
    project.settle();
    enum { Deleted, Recoded, Shortened };
    for (const int touched : {0, 1}) {
        for (const int change : {Deleted, Recoded, Shortened}) {
            const QList<Highlight> pair{undotest::highlight(300, 2, 1, 1, 40, 44),
                                        undotest::highlight(301, 2, 1, 1, 46, 50)};
            QVERIFY(file.batchDeleteHighlights(file.highlights(1, 1)) && file.batchSaveHighlights(pair));
            project.settle();
            open();
            insert(5, "+++"_s);
            QTextCursor between(text.textDocument()->textDocument());
            between.setPosition(47);
            between.setPosition(49, QTextCursor::KeepAnchor);
            between.removeSelectedText();
            Highlight theirs = pair.at(touched);
            theirs.detach();
            theirs.setKernoId(change == Recoded ? 3 : 2);
            theirs.setLength(change == Shortened ? 1 : 4);
            if (change == Deleted)
                file.deleteHighlight(theirs);
            else
                file.saveHighlight(theirs);
            project.settle();
            tracker.saveChanges();
            project.settle();
            QStringList expected{before.mid(pair.at(1 - touched).start(), 4)};
            if (change == Shortened)
                expected.insert(touched, before.mid(theirs.start(), 1));
            QCOMPARE(codedWith(2), expected);
            QCOMPARE(codedWith(3),
                     change == Recoded ? QStringList{before.mid(theirs.start(), 4)} : QStringList());
            project.undo.undo();
            project.settle();
        }
    }

    // Somebody changes the text: theirs stays, and ours becomes a source.
    open();
    insert(0, "Mine: "_s);
    QuestionAnswer theirs = file.answerModel()->answer(1, 1);
    theirs.setAnswer("Theirs."_s);
    file.saveAnswer(theirs);
    project.settle();
    QVERIFY(tracker.isOutdated());
    QVERIFY(tracker.saveAsNewSource("Other"_s));
    project.settle();
    QCOMPARE(stored(), "Theirs."_s);
    const Source other = file.dataHelper()->findAll<Source>().last();
    QCOMPARE(other.title(), "Other"_s);
    QCOMPARE(file.answerModel()->answer(other.id(), 1).plainAnswer(), "Mine: "_s + before);
    QCOMPARE(file.answerModel()->answer(other.id(), 2).plainAnswer(), QString());
}

KERNOVA_GUI_TEST_MAIN(tst_DocumentChangeTracker)
#include "tst_documentchangetracker.moc"
