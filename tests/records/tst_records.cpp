#include "records/ChatMessage.h"
#include "records/Group.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/KernoGroup.h"
#include "records/KernoShortcutKey.h"
#include "records/Memo.h"
#include "records/Preference.h"
#include "records/Question.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "records/SourceMetadata.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"
#include "tests_support/TestMain.h"

#include <QMetaProperty>

namespace {

Highlight highlight(int start, int end, int id = 1) {
    return Highlight(id, 1, 1, 1, Qt::red, start, end - start, end, QStringLiteral("A"), QDateTime(), 0, 0, 0,
                     false);
}

QJsonObject highlightJson() {
    return {{QStringLiteral("id"), 4},
            {QStringLiteral("kernoId"), 2},
            {QStringLiteral("sourceId"), 3},
            {QStringLiteral("questionId"), 1},
            {QStringLiteral("color"), QStringLiteral("#102030")},
            {QStringLiteral("start"), 10},
            {QStringLiteral("length"), 5},
            {QStringLiteral("author"), QStringLiteral("Ada")},
            {QStringLiteral("timestamp"), QStringLiteral("2026-03-04T05:06:07Z")}};
}

// A record's gadget properties and its field table are two lists of the same names.
template <typename T> void compareLists(const QStringList& withoutProperty = {}) {
    QStringList properties;
    for (int i = 0; i < T::staticMetaObject.propertyCount(); ++i)
        properties << QString::fromLatin1(T::staticMetaObject.property(i).name());
    for (const FieldInfo& field : T::fieldInfos()) {
        if (!withoutProperty.contains(field.roleName))
            QVERIFY2(properties.contains(field.roleName), qPrintable(field.roleName));
    }
    const T empty{};
    QCOMPARE(empty.toVariantMap().size(), int(T::fieldInfos().size()));
    for (const QString& name : qAsConst(properties)) {
        const int index = T::staticMetaObject.indexOfProperty(name.toLatin1().constData());
        const QMetaProperty property = T::staticMetaObject.property(index);
        if (empty.toVariantMap().contains(name))
            QCOMPARE(property.readOnGadget(&empty), empty.toVariantMap().value(name));
    }
}

}  // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void fieldTablesAndPropertiesAgree();
    void argumentsFollowTheTable_data();
    void argumentsFollowTheTable();
    void readsWhatItCanAndSaysWhetherItWasAll();
    void readsAndComparesHighlights();
    void copiesShareAsTheirKindSays();
    void copiesAndFlags();
    void clipsToTheWindow_data();
    void clipsToTheWindow();
    void overlapsAndRanges();
    void ordersHighlights();
    void validity();
};

void RecordsTest::fieldTablesAndPropertiesAgree() {
    compareLists<Kerno>();
    compareLists<Source>();
    compareLists<Highlight>();
    compareLists<Memo>();
    compareLists<Question>();
    compareLists<QuestionAnswer>();
    compareLists<SourceMetadata>();
    compareLists<SourceMetadataKey>();
    compareLists<SourceMetadataValue>();
    compareLists<Group>();
    compareLists<KernoGroup>();
    compareLists<Preference>();
    compareLists<ChatMessage>();
    compareLists<KernoShortcutKey>({QStringLiteral("author")});
    for (wire::Record record : wire::allRecords()) {
        int number = firstFieldNumber;
        for (const FieldInfo& field : recordFields(record))
            QCOMPARE(field.number, number++);
    }
    QCOMPARE(int(KernoField::visible), 266);
    QCOMPARE(int(HighlightField::overlapping), 270);
    QCOMPARE(int(QuestionAnswerField::isHtml), 263);
}

void RecordsTest::argumentsFollowTheTable_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("kerno") << Kerno(1, -1, QColor(QStringLiteral("#e1e120")), QStringLiteral("a\\ \"b\"\nc"),
                                    QStringLiteral("d"), QDateTime::currentDateTime(), QStringLiteral("Ada"),
                                    3, 4)
                                  .mutationArguments()
                           << QStringList{QStringLiteral("id:1"),
                                          QStringLiteral("parentKernoId:-1"),
                                          QStringLiteral("color:\"#e1e120\""),
                                          QStringLiteral("title:\"a\\\\ \\\"b\\\"\\nc\""),
                                          QStringLiteral("description:\"d\""),
                                          QStringLiteral("author:\"Ada\""),
                                          QStringLiteral("x:3"),
                                          QStringLiteral("y:4")};
    QTest::newRow("answer")
        << QuestionAnswer(1, 2, 3, QStringLiteral("A"), QStringLiteral("x"), QDateTime()).mutationArguments()
        << QStringList{QStringLiteral("id:1"), QStringLiteral("questionId:2"), QStringLiteral("sourceId:3"),
                       QStringLiteral("author:\"A\""),
                       QStringLiteral("answer:\"<body style=\\\"white-space: pre-wrap;\\\">x</body>\"")};
    QTest::newRow("number") << Preference(QStringLiteral("k"), 5).mutationArguments()
                            << QStringList{QStringLiteral("key:\"k\""), QStringLiteral("value:5")};
    QTest::newRow("switch") << Preference(QStringLiteral("k"), true).mutationArguments()
                            << QStringList{QStringLiteral("key:\"k\""), QStringLiteral("value:1")};
    QTest::newRow("text") << Preference(QStringLiteral("k"), QStringLiteral("30")).mutationArguments()
                          << QStringList{QStringLiteral("key:\"k\""), QStringLiteral("value:\"30\"")};
}

void RecordsTest::argumentsFollowTheTable() {
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);
    QCOMPARE(arguments, expected);
}

void RecordsTest::readsWhatItCanAndSaysWhetherItWasAll() {
    const Kerno partial(QJsonObject{{QStringLiteral("id"), 3},
                                    {QStringLiteral("title"), QStringLiteral("T")},
                                    {QStringLiteral("x"), QStringLiteral("12")},
                                    {QStringLiteral("y"), QJsonObject()}},
                        "queryList");
    QVERIFY(!partial.parsedOk());
    QVERIFY(partial.isValid());
    QVERIFY(!partial.color().isValid());
    QCOMPARE(partial.title(), QStringLiteral("T"));
    QCOMPARE(partial.parentKernoId(), -1);
    QCOMPARE(partial.x(), 12);
    QCOMPARE(partial.y(), 1);

    const Group group(
        QJsonObject{{QStringLiteral("id"), 1}, {QStringLiteral("description"), QStringLiteral("G")}}, "");
    QCOMPARE(group.toVariantMap().value(QStringLiteral("title")).toString(), QStringLiteral("G"));
    QVERIFY(group.isValid());
    QCOMPARE(Preference(
                 QJsonObject{{QStringLiteral("key"), QStringLiteral("k")}, {QStringLiteral("value"), 7}}, "")
                 .value()
                 .toInt(),
             7);
}

void RecordsTest::readsAndComparesHighlights() {
    const Highlight read(highlightJson(), "queryList");
    QVERIFY(read.isValid());
    QCOMPARE(read.end(), 15);
    QCOMPARE(read.timestamp(), QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), Qt::UTC));

    QJsonObject json = highlightJson();
    json.insert(QStringLiteral("timestamp"), QJsonValue::Null);
    QVERIFY(!Highlight(json, "").parsedOk());
    QVERIFY(!Highlight(json, "").isValid());
    json = highlightJson();
    json.remove(QStringLiteral("color"));
    QCOMPARE(Highlight(json, "").color(), QColor(Qt::black));
    json.insert(QStringLiteral("color"), QJsonValue::Null);
    QCOMPARE(Highlight(json, "").color(), QColor(Qt::black));
    json.insert(QStringLiteral("start"), 2.7);
    json.insert(QStringLiteral("length"), true);
    json.insert(QStringLiteral("kernoId"), QStringLiteral("many"));
    const Highlight odd(json, "");
    QCOMPARE(odd.start(), 3);
    QCOMPARE(odd.end(), 4);
    QCOMPARE(odd.kernoId(), 0);

    Highlight other(highlightJson(), "");
    other.setColor(Qt::green);
    other.setColumn(3);
    QVERIFY(read.equals(other));
    other.setStart(11);
    QVERIFY(!read.equals(other));
    QCOMPARE(other.end(), 16);
    QVERIFY(read == other);
    other.setLength(0);
    QVERIFY(!other.isValid());

    const qint64 now = QDateTime::currentSecsSinceEpoch();
    QVERIFY(read.fieldValue(int(HighlightField::timestamp), true).toLongLong() >= now);
    QVERIFY(!read.fieldValue(256, false).isValid());
    QVERIFY(!read.fieldValue(272, false).isValid());
    QCOMPARE(read.toJson().toObject().value(QStringLiteral("color")).toString(), QStringLiteral("#102030"));
}

void RecordsTest::copiesShareAsTheirKindSays() {
    Highlight first = highlight(3, 9);
    Highlight second = first;
    second.setStart(5);
    QCOMPARE(first.start(), 5);
    second.detach();
    second.setStart(7);
    QCOMPARE(first.start(), 5);

    Kerno kerno(1, -1, Qt::red, QStringLiteral("A"), {}, {}, {}, 1, 1);
    kerno.setUuid(QUuid::createUuid());
    Kerno copy = kerno;
    copy.setTitle(QStringLiteral("B"));
    QCOMPARE(kerno.title(), QStringLiteral("A"));
    QVERIFY(copy.uuid().isNull());
    copy.setGroupVisible(false);
    QVERIFY(!copy.visible());
    QVERIFY(kerno.visible());
}

void RecordsTest::copiesAndFlags() {
    const Question empty;
    QVERIFY(!empty.isValid());
    const Question copy(empty);
    QVERIFY(copy.isValid());
    Question assigned(1, QStringLiteral("Q"), 1);
    assigned = Question();
    QVERIFY(!assigned.isValid());
}

void RecordsTest::clipsToTheWindow_data() {
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("newStart");
    QTest::addColumn<int>("newLength");
    QTest::addColumn<bool>("valid");
    QTest::newRow("no end") << 90 << 20 << 100 << -1 << 0 << 10 << true;
    QTest::newRow("limit counts the offset") << 90 << 20 << 100 << 5 << 0 << 10 << true;
    QTest::newRow("limit bites") << 10 << 200 << 0 << 50 << 10 << 40 << true;
    QTest::newRow("before the window") << 10 << 20 << 100 << -1 << 0 << -70 << false;
    QTest::newRow("inside") << 110 << 20 << 100 << 50 << 10 << 20 << true;
}

void RecordsTest::clipsToTheWindow() {
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(int, offset);
    QFETCH(int, window);
    const Highlight whole = highlight(start, start + length);
    const Highlight cut(whole, offset, window);
    QTEST(cut.start(), "newStart");
    QTEST(cut.length(), "newLength");
    QCOMPARE(cut.end(), cut.start() + cut.length());
    QTEST(cut.isValid(), "valid");
    QCOMPARE(whole.start(), start);

    const Memo memo(1, 1, 1, {}, start, length, start + length, {}, {}, 0, 0);
    QCOMPARE(Memo(memo, offset, window).start(), cut.start());
    QCOMPARE(Memo(memo, offset, window).length(), cut.length());
}

void RecordsTest::overlapsAndRanges() {
    QVERIFY(!highlight(0, 5).overlaps(highlight(5, 9)));
    QVERIFY(highlight(0, 6).overlaps(highlight(5, 9)));
    const Highlight nothing = highlight(5, 5);
    QVERIFY(nothing.overlaps(nothing));
    QVERIFY(highlight(3, 6).intersects(5, 9));
    QVERIFY(!highlight(3, 6).intersects(6, 9));

    QPair<int, int> range(10, 20);
    QVERIFY(!highlight(20, 30).extendRange(range));
    QVERIFY(highlight(15, 30).extendRange(range));
    QVERIFY(highlight(5, 11).extendRange(range));
    QCOMPARE(range, qMakePair(5, 30));
    QVERIFY(!highlight(0, 5).extendRangeWith(range, highlight(5, 8)));
    QVERIFY(highlight(0, 6).extendRangeWith(range, highlight(5, 40)));
    QCOMPARE(range, qMakePair(0, 40));
}

void RecordsTest::ordersHighlights() {
    QVERIFY(highlightLessThan(highlight(3, 10), highlight(3, 7)));
    QVERIFY(!highlightLessThan(highlight(3, 7), highlight(3, 10)));
    QVERIFY(highlightLessThan(highlight(2, 3), highlight(3, 10)));
    QVERIFY(!highlightLessThan(highlight(3, 7), highlight(3, 7)));
}

void RecordsTest::validity() {
    QVERIFY(!SourceMetadataKey(5, false, false, {}).isValid());
    QVERIFY(SourceMetadata(-1, 1, 1, 1, {}, {}).isValid());
    QVERIFY(!SourceMetadata(1, 1, 1, 0, {}, {}).isValid());
    QVERIFY(!SourceMetadataValue(1, 1, QVariant()).isValid());
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QVERIFY(ChatMessage(1, QStringLiteral("m"), QStringLiteral("a"), now).isValid());
    QVERIFY(!ChatMessage(1, QStringLiteral("m"), QStringLiteral("a"), QDateTime()).isValid());
    QVERIFY(!KernoShortcutKey(QStringLiteral("A"), 0, {}).isValid());
    QVERIFY(!Source().isValid());
    QVERIFY(Source(1, {}, {}, {}, {}).isValid());
    QVERIFY(!Kerno().isValid());
}

KERNOVA_TEST_MAIN(RecordsTest)
#include "tst_records.moc"
