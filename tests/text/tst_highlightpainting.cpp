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
    void blocksArePaintedAsCharacterByCharacter() {
        QRandomGenerator random(7);
        for (int round = 0; round < 300; ++round) {
            Ranges ranges;
            for (int i = random.bounded(12); i > 0; --i) {
                const int start = random.bounded(60);
                ranges.append({start, start + 1 + random.bounded(12)});
            }
            QList<Highlight> list = highlightsAt(ranges);
            const painting::Layers layers = layersOf(list);
            // Of each character: r under one passage, o under several that meet, or none.
            QString expected(80, QLatin1Char('.'));
            for (const Highlight& a : qAsConst(list)) {
                const bool meetsAnother = std::any_of(list.cbegin(), list.cend(), [&a](const Highlight& b) {
                    return a.id() != b.id() && a.intersects(b.start(), b.end());
                });
                QCOMPARE(a.overlapping(), meetsAnother);
                expected.replace(a.start(), a.length(),
                                 QString(a.length(), QLatin1Char(meetsAnother ? 'o' : 'r')));
            }
            // Block by block, as a document asks for them.
            for (int start = 0, end = 0; start < expected.size(); start = end) {
                end = qMin(expected.size(), start + 1 + random.bounded(20));
                QString painted(end - start, QLatin1Char('.'));
                for (const painting::Stroke& stroke : painting::strokesForBlock(layers, {}, start, end)) {
                    QVERIFY(stroke.start >= 0 && stroke.start + stroke.count <= painted.size());
                    const bool isOverlap = stroke.background == painting::overlapColor();
                    QVERIFY(isOverlap || stroke.background == red);
                    painted.replace(stroke.start, stroke.count,
                                    QString(stroke.count, QLatin1Char(isOverlap ? 'o' : 'r')));
                }
                QCOMPARE(painted, expected.mid(start, end - start));
            }
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
