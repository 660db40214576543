#include "records/ContrastColor.h"
#include "tests_support/TestMain.h"
#include "text/HighlightPainting.h"

#include <algorithm>

using Ranges = QVector<QPair<int, int>>;

Q_DECLARE_METATYPE(Ranges)

namespace {

const QColor red(200, 0, 0);

QList<Highlight> highlightsAt(const Ranges& ranges) {
    QList<Highlight> list;
    for (const auto& range : ranges) {
        list.append(Highlight(list.size() + 1, 1, 1, 1, red, range.first, range.second - range.first,
                              range.second, {}, {}, 0, 0, 0, false));
    }
    std::sort(list.begin(), list.end(), highlightLessThan);
    return list;
}

painting::Layers layersOf(QList<Highlight>& list) {
    const auto overlaps = painting::markOverlaps(list);
    return painting::layersOf(list, overlaps);
}

}  // namespace

class tst_HighlightPainting : public QObject {
    Q_OBJECT

private slots:
    void strokesAreClippedToTheBlock_data() {
        columns<Ranges, QString>({"highlights", "strokes"});
        addRow("inside", Ranges{{12, 15}}, "2+3 red");
        addRow("from before", Ranges{{5, 12}}, "0+2 red");
        addRow("beyond the end", Ranges{{18, 30}}, "8+2 red");
        addRow("over all", Ranges{{0, 99}}, "0+10 red");
        addRow("up to the start", Ranges{{0, 10}}, "");
        addRow("from the end", Ranges{{20, 22}}, "");
        addRow("overlap, clipped", Ranges{{5, 12}, {11, 30}}, "0+10 overlap");
        addRow("single before overlap", Ranges{{16, 18}, {17, 19}, {10, 11}}, "0+1 red, 6+3 overlap");
    }

    void strokesAreClippedToTheBlock() {
        QFETCH(Ranges, highlights);
        QList<Highlight> list = highlightsAt(highlights);
        const painting::Layers layers = layersOf(list);
        QStringList strokes;
        for (const painting::Stroke& stroke : painting::strokesForBlock(layers, Highlight(), 10, 20)) {
            const bool isOverlap = stroke.background == painting::overlapColor();
            QVERIFY(isOverlap || stroke.background == red);
            strokes << "%1+%2 %3"_s.arg(stroke.start)
                           .arg(stroke.count)
                           .arg(QLatin1String(isOverlap ? "overlap" : "red"));
        }
        QTEST(strokes.join(", "_s), "strokes");
    }

    void overlapsCoverWhatAPixelwisePaintingCovers() {
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            Ranges ranges;
            for (int i = random.bounded(12); i > 0; --i) {
                const int start = random.bounded(60);
                ranges.append({start, start + 1 + random.bounded(12)});
            }
            QList<Highlight> list = highlightsAt(ranges);
            QVector<bool> painted(80);
            for (const auto& range : painting::markOverlaps(list))
                std::fill(painted.begin() + range.first, painted.begin() + range.second, true);
            QVector<bool> expected(80);
            for (const Highlight& a : qAsConst(list)) {
                const bool meetsAnother = std::any_of(list.cbegin(), list.cend(), [&a](const Highlight& b) {
                    return a.id() != b.id() && a.intersects(b.start(), b.end());
                });
                QCOMPARE(a.overlapping(), meetsAnother);
                if (meetsAnother)
                    std::fill(expected.begin() + a.start(), expected.begin() + a.end(), true);
            }
            QCOMPARE(painted, expected);
        }
    }

    void textIsReadableOnItsBackground_data() {
        columns<QColor, QColor>({"background", "text"});
        addRow("white", QColor(Qt::white), QColor(Qt::black));
        addRow("black", QColor(Qt::black), QColor(Qt::white));
        addRow("middle grey", QColor(128, 128, 128), QColor(Qt::black));
        addRow("a shade darker", QColor(127, 127, 127), QColor(Qt::white));
        addRow("blue weighs little", QColor(0, 0, 255), QColor(Qt::white));
        addRow("green weighs much", QColor(0, 255, 0), QColor(Qt::black));
        addRow("overlap", painting::overlapColor(), QColor(Qt::white));
    }

    void textIsReadableOnItsBackground() {
        QFETCH(QColor, background);
        QTEST(contrastFontColor(background), "text");
    }
};

KERNOVA_TEST_MAIN(tst_HighlightPainting)
#include "tst_highlightpainting.moc"
