#include "records/QuestionAnswer.h"
#include "search/CodedRanges.h"
#include "search/Excerpts.h"
#include "search/SearchTerm.h"
#include "tests_support/TestMain.h"

#include <algorithm>

using namespace Search;
using passages::Range;

namespace {

QRegularExpression compiled(const QString& pattern) {
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption |
                                           QRegularExpression::UseUnicodePropertiesOption);
}

/// What the one expression finds: hits with their words, in the order and way in which it takes them.
QVector<Stretch> byOneExpression(const QString& text, const QString& hitPattern) {
    const QString unit = "(?:(?:\\S+\\s+)|(?:\\s+\\S+)){0,5}"_s;
    const QRegularExpression expression = compiled(unit + hitPattern + unit);
    QVector<Stretch> matches;
    for (int from = 0;;) {
        const QRegularExpressionMatch match = expression.match(text, from);
        if (!match.hasMatch())
            return matches;
        matches.append({match.capturedStart(), match.capturedEnd()});
        from = match.capturedEnd();
    }
}

/// Short words over few characters, with blanks of all kinds, so that hits overlap, touch and lie at ends.
QString randomText(QRandomGenerator& random) {
    static const QStringList pieces{"a",   "b",   "ab", "ba", "aba",    "A",  "want", "wanted", "unwanted",
                                    "é",   "É",   "ж",  "Жж", "ß",      "日", "😀",    "a😀",     "x-a",
                                    "a.b", "axb", "!",  ",",  "\u180e", "_",  "9",    "1a",     "ab ab",
                                    " ",   " ",   " ",  " ",  "  ",     "\n", "\t",   "\u00a0", "\u2028"};
    QString text;
    const int count = random.bounded(30);
    for (int i = 0; i < count; ++i) {
        text += pieces.at(random.bounded(pieces.size()));
        if (random.bounded(3) > 0)
            text += QLatin1Char(' ');
    }
    return text;
}

QString shown(const QVector<Stretch>& stretches) {
    QStringList list;
    for (const Stretch& s : stretches)
        list.append("%1-%2"_s.arg(s.start).arg(s.end));
    return list.join(QLatin1Char(' '));
}

Highlight highlight(int id, int kernoId, int start, int end) {
    return {id, kernoId, 1, 1, QColor(), start, end - start, end, {}, {}, 0, 0, 0, false};
}

QVariantMap row(const char* kind, const QVariant& value, const char* op) {
    QVariantMap map{{"value", value}, {"operator", op}};
    if (*kind >= '0' && *kind <= '9')
        map.insert("property", QByteArray(kind).toInt());
    else
        map.insert(kind, true);
    return map;
}

}  // namespace

class TestSearchAlgorithms : public QObject {
    Q_OBJECT

private slots:
    void listsAlternatives_data() {
        columns<QString, bool, QString>({"term", "endings", "expected"});
        QTest::newRow("ending cut") << "wanted" << true
                                    << "wante wantes wanting wants wanted wantedly wantly";
        QTest::newRow("none to cut") << "walk" << true
                                     << "walk walke walkes walking walks walked walkedly walkly";
        QTest::newRow("first ending")
            << "plays" << true << "playe playes playing plays played playedly playly";
        QTest::newRow("capital") << "Walk" << true << "walke walkes walking walks walked walkedly walkly";
        QTest::newRow("three letters") << "run" << true << "run";
        QTest::newRow("off") << "wanted" << false << "wanted";
        QTest::newRow("escaped") << "a.b" << true << "a\\.b";
        QTest::newRow("not escaped") << "wa.t" << true
                                     << "wa.t wa.te wa.tes wa.ting wa.ts wa.ted wa.tedly wa.tly";
        QTest::newRow("two words") << "he walks" << true << "he\\ walks";
        QTest::newRow("an ending as a word") << "edly" << true << "ede edes eding eds eded ededly edly";
    }

    void listsAlternatives() {
        FETCH(QString, term, bool, endings);
        QTEST(alternatives(term, endings).join(' '), "expected");
    }

    // Whole words bind the front of the first alternative and the end of the last.
    void findsHits_data() {
        columns<QString, QStringList, int, QString, QString>(
            {"term", "synonyms", "options", "text", "expected"});
        const int whole = 1, endings = 4;
        QTest::newRow("part of a word") << "art" << QStringList{} << 0 << "Art party"
                                        << "0-3 5-8";
        QTest::newRow("whole word") << "art" << QStringList{} << whole << "Art party art"
                                    << "0-3 10-13";
        QTest::newRow("inner alternatives are free")
            << "art" << QStringList{"mid", "end"} << whole << "party amidst bend ends end"
            << "7-10 14-17 23-26";
        QTest::newRow("dot is literal") << "a.b" << QStringList{} << endings << "axb a.b"
                                        << "4-7";
        QTest::newRow("dot is any character") << "wa.t" << QStringList{} << endings << "wait"
                                              << "0-4";
        QTest::newRow("synonym is literal") << "x" << QStringList{"(a)"} << 0 << "a (a)"
                                            << "2-5";
        QTest::newRow("invalid") << "(wait" << QStringList{} << endings << "(wait"
                                 << "";
    }

    void findsHits() {
        FETCH(QString, term, QStringList, synonyms, int, options, QString, text);
        QTEST(shown(hits(text, hitExpression(term, synonyms, Options(options)))), "expected");
    }

    void findsWhatTheOneExpressionFinds() {
        QRandomGenerator random(8);
        const QStringList terms{"(a)",
                                "(\\ba\\b)",
                                "(ab|a)",
                                "(want|wanted)",
                                "(\\bwant|ed\\b)",
                                "(a\\ b)",
                                "(é|ж)",
                                "(😀)",
                                "(a.b)",
                                "(\\ a)",
                                "(aba|ab)",
                                "((a|b)\\2)",
                                "(\\s)",
                                "(b\\s+a|a\\s+b)",
                                "(_|9)",
                                "(ß)",
                                "(\\ba b|b a\\b)",
                                "(日)",
                                "(.)",
                                "(a+)"};
        int found = 0;
        for (int i = 0; i < 6000; ++i) {
            const QString text = randomText(random);
            const QString& term = terms.at(random.bounded(terms.size()));
            const QVector<Stretch> expected = byOneExpression(text, term);
            const QVector<Stretch> actual = contextMatches(text, compiled(term));
            found += expected.size();
            if (!(actual == expected))
                qCritical() << term << text;
            QCOMPARE(shown(actual), shown(expected));
        }
        QVERIFY(found > 4000);
        // What counts as a blank is what the expression takes for one.
        const QRegularExpression hit = compiled("(x)"), blank = compiled("\\s");
        for (int c = 1; c < 0xffff; ++c) {
            if (!QChar::isSurrogate(ushort(c)) && c != 'x' && c != 'X')
                QCOMPARE(contextMatches("a%1bx"_s.arg(QChar(c)), hit).first().start == 1,
                         blank.match(QChar(c)).hasMatch());
        }
    }

    // A text is passed over only if the search itself would find nothing in it, whatever letters and bounds.
    void passesOverTextsWithoutHits() {
        QRandomGenerator random(5);
        int passedOver = 0, found = 0;
        for (int i = 0; i < 4000; ++i) {
            const auto letters = [&random](int most) {
                QString text;
                for (int j = random.bounded(most); j >= 0; --j)
                    text += random.bounded(3) ? QChar(random.bounded(1, 256))
                                              : QChar(u"aKsé "[random.bounded(5)]);
                return text;
            };
            const QuestionAnswer answer(1, 1, 1, {}, letters(200).toHtmlEscaped(), {});
            const QString term =
                i % 9 ? letters(2).toUpper() : QString(u"\u212a\u017f\u212b\u1e9e\u0178"[i % 5]);
            const QRegularExpression hit =
                hitExpression(term, {letters(2)}, i % 2 ? Options(Option::WholeWords) : Options());
            const Stretch within{random.bounded(20), 20 + random.bounded(200)};
            const bool hasHits = !excerptRanges(answer.plainAnswer(), within, hit).isEmpty();
            const bool mayHave = mayHaveHits(answer, within, NarrowScan(hit));
            QVERIFY2(mayHave || !hasHits, qPrintable(hit.pattern()));
            passedOver += !mayHave;
            found += hasHits;
        }
        QVERIFY(passedOver > 500 && found > 500);
    }

    void endsOnAnyExpression() {
        const QString text = "one two"_s;
        QVERIFY(contextMatches(text, compiled("(x|)")).size() < 3);
        QVERIFY(contextMatches(QString(), compiled("(|x)")).isEmpty());
        QVERIFY(contextMatches(text, compiled("((x)")).isEmpty());
        const QString broken = QString(QChar(0xd83d)) + " one"_s;
        QCOMPARE(shown(contextMatches(readable(broken), compiled("(one)"))), "0-5"_s);
    }

    void joinsNearHits() {
        for (int gap : {0, 1, 39, 40, 41, 80})
            QCOMPARE(merged({{0, 5}, {5 + gap, 60 + gap}}).size(), gap <= 40 ? 1 : 2);
        QCOMPARE(shown(merged({{0, 5}, {45, 50}, {90, 95}, {136, 140}})), "0-95 136-140"_s);
    }

    // Excerpts tell where they lie and hold the text as it is, whatever marks and characters are in it.
    void cutsExcerpts() {
        QRandomGenerator random(4);
        const QRegularExpression hit = hitExpression("want", {"&", "é"}, Options());
        int count = 0;
        for (int i = 0; i < 300; ++i) {
            QString text;
            for (int j = random.bounded(8); j >= 0; --j)
                text += randomText(random) + (random.bounded(2) ? "<p>&amp;<b>" : "\n");
            text.replace("😀", "x");
            const QuestionAnswer plain(1, 1, 1, {}, text.toHtmlEscaped(), {});
            const QString whole = plain.plainAnswer();
            const int from = random.bounded(whole.size() + 1);
            const Stretch within{from, from + random.bounded(whole.size() + 2)};
            int last = -1;
            for (const Stretch& range : excerptRanges(whole, within, hit)) {
                const QuestionAnswer part = excerpt(plain, range, hit);
                QVERIFY(range.start >= within.start && range.end <= within.end && range.start > last);
                QCOMPARE(part.offset(), range.start);
                QCOMPARE(part.plainAnswer(), whole.mid(range.start, range.length()));
                QVERIFY(part.answer().contains("<b><u><font color=\"orange\">"));
                QCOMPARE(HtmlDocument::parse(part.answer()).plainText(), part.plainAnswer());
                last = range.end;
                ++count;
            }
        }
        QVERIFY(count > 200);
        QCOMPARE(excerpt(QuestionAnswer(), {0, 3}, hit).answerId(), -1);
    }

    void readsCriteria_data() {
        QTest::addColumn<QVariantList>("rows");
        QTest::addColumn<QString>("expected");  // kernos; properties; authors; other authors
        QTest::newRow("none") << QVariantList{} << "; ; ; ";
        QTest::newRow("of each kind") << QVariantList{row("kerno", 3, "!="), row("5", "x", ">="),
                                                      row("author", "Ann", "=="), row("author", "Bob", "!=")}
                                      << "!3; 5; Ann; Bob";
        QTest::newRow("cancelled") << QVariantList{row("kerno", 3, "="), row("kerno", 3, "!=")} << "; ; ; ";
        QTest::newRow("twice") << QVariantList{row("kerno", 3, "="), row("kerno", 3, "=="),
                                               row("5", "x", "="), row("5", "x", "=")}
                               << "3; 5; ; ";
        QTest::newRow("dropped") << QVariantList{row("kerno", 3, ">"), row("kerno", 0, "="),
                                                 row("author", "Ann", "<"), row("kernoGroup", 2, "="),
                                                 row("5", "x", "~")}
                                 << "; ; ; ";
    }

    void readsCriteria() {
        QFETCH(QVariantList, rows);
        const Criteria criteria = readCriteria(rows);
        QStringList kernos, keys;
        for (const KernoCriterion& k : criteria.kernos)
            kernos.append((k.excluded ? "!" : "") + QString::number(k.kernoId));
        for (const PropertyCriterion& p : criteria.properties)
            keys.append(QString::number(p.keyId));
        const QStringList actual{kernos.join(' '), keys.join(' '),
                                 QStringList(criteria.includedAuthors.values()).join(' '),
                                 QStringList(criteria.excludedAuthors.values()).join(' ')};
        QTEST(actual.join("; "), "expected");
    }

    void testsProperties_data() {
        columns<QVariantList, bool, bool>({"rows", "all", "any"});
        const auto age = [](const char* op, const QVariant& value) { return row("1", value, op); };
        QTest::newRow("one of several values") << QVariantList{age("=", "b")} << true << true;
        QTest::newRow("other than one of them") << QVariantList{age("!=", "b")} << true << true;
        QTest::newRow("no value") << QVariantList{row("2", "b", "=")} << false << false;
        QTest::newRow("other than no value") << QVariantList{row("2", "b", "!=")} << true << true;
        QTest::newRow("both") << QVariantList{age("=", "a"), row("2", "b", "=")} << false << true;
        QTest::newRow("texts in order") << QVariantList{age(">", "a"), age("<=", "b")} << true << true;
        QTest::newRow("numbers in order")
            << QVariantList{row("3", 9, ">"), row("3", 10, ">=")} << true << true;
        QTest::newRow("neither") << QVariantList{age("<", "a"), row("3", 10, "!=")} << false << false;
    }

    void testsProperties() {
        QFETCH(QVariantList, rows);
        const QHash<int, QVariantList> values{{1, {"a", "b"}}, {3, {10}}};
        const auto valuesOf = [&values](int key) { return values.value(key); };
        QTEST(propertiesPass(readCriteria(rows).properties, true, valuesOf), "all");
        QTEST(propertiesPass(readCriteria(rows).properties, false, valuesOf), "any");
    }

    void findsCodedText() {
        QRandomGenerator random(16);
        int filled = 0;
        for (int round = 0; round < 3000; ++round) {
            QList<Highlight> highlights;
            for (int i = random.bounded(9); i >= 0; --i) {
                const int start = random.bounded(30);
                highlights.append(highlight(i, 1 + random.bounded(4), start, start + 1 + random.bounded(12)));
            }
            std::stable_sort(highlights.begin(), highlights.end(), highlightLessThan);
            QList<KernoCriterion> criteria;
            for (int kerno = 1; kerno <= 3; ++kerno) {
                if (random.bounded(2))
                    criteria.append({kerno, random.bounded(3) == 0});
            }
            const QSet<int> any = characters(codedForAny(highlights, criteria));
            const QList<Range> all = codedForAll(highlights, criteria);
            QCOMPARE(any, charactersForAny(highlights, criteria));
            QCOMPARE(characters(all), charactersForAll(highlights, criteria));
            QCOMPARE(QSet<Range>(all.begin(), all.end()).size(), all.size());
            filled += all.isEmpty() ? 0 : 1;
            if (needsOnlyNamedKernos(criteria)) {
                QList<Highlight> named;
                for (const Highlight& h : qAsConst(highlights)) {
                    if (std::any_of(criteria.cbegin(), criteria.cend(),
                                    [&h](const KernoCriterion& c) { return c.kernoId == h.kernoId(); }))
                        named.append(h);
                }
                QCOMPARE(codedForAll(named, criteria), all);
                QCOMPARE(characters(codedForAny(named, criteria)), any);
            }
        }
        QVERIFY(filled > 500);
    }

private:
    static QSet<int> characters(const QList<Range>& ranges) {
        QSet<int> set;
        for (const Range& range : ranges) {
            for (int c = range.first; c < range.second; ++c)
                set.insert(c);
        }
        return set;
    }

    static QSet<int> characters(const Highlight& h) { return characters(QList<Range>{{h.start(), h.end()}}); }

    static QSet<int> charactersForAny(const QList<Highlight>& highlights,
                                      const QList<KernoCriterion>& criteria) {
        QSet<int> set;
        for (const Highlight& h : highlights) {
            bool qualifies = criteria.isEmpty();
            for (const KernoCriterion& c : criteria)
                qualifies = qualifies || (c.excluded ? h.kernoId() != c.kernoId : h.kernoId() == c.kernoId);
            if (qualifies)
                set |= characters(h);
        }
        return set;
    }

    // Of a highlight: what every other one of a kerno that is asked for covers, as far as it overlaps at all,
    // and none of a kerno that is excluded.
    static QSet<int> charactersForAll(const QList<Highlight>& highlights,
                                      const QList<KernoCriterion>& criteria) {
        const bool anyExcluded = std::any_of(criteria.cbegin(), criteria.cend(),
                                             [](const KernoCriterion& c) { return c.excluded; });
        QSet<int> set;
        for (const Highlight& h : highlights) {
            QSet<int> own = characters(h);
            bool named = criteria.isEmpty() || anyExcluded;
            for (const KernoCriterion& c : criteria) {
                const bool isOwn = h.kernoId() == c.kernoId;
                named = named || isOwn;
                bool met = isOwn && !c.excluded;
                QSet<int> kept = isOwn && c.excluded ? QSet<int>() : own;
                for (const Highlight& other : highlights) {
                    if (other.highlightId() == h.highlightId() || other.kernoId() != c.kernoId ||
                        !characters(h).intersects(characters(other)))
                        continue;
                    met = true;
                    if (c.excluded)
                        kept -= characters(other);
                    else
                        kept &= characters(other);
                }
                own = met || c.excluded ? kept : QSet<int>();
            }
            if (named)
                set |= own;
        }
        return set;
    }
};

KERNOVA_TEST_MAIN(TestSearchAlgorithms)
#include "tst_searchalgorithms.moc"
