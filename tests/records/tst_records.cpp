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

struct GoldenRecord {
    const char* word;
    const char* fields;  ///< number, name on the wire, role where it differs, default
    const char* arguments;
};

/// Both programs derive all else from the field tables, so that a misspelt name would agree with itself.
const GoldenRecord golden[] = {
    {"kerno",
     "257 id/kernoId -1; 258 parentKernoId -1; 259 color #ffffff; 260 title -; "
     "261 description -; 262 timestamp -; 263 author -; 264 x 1; 265 y 1; "
     "266 visible true local",
     "id parentKernoId color title description author x y"},
    {"source", "257 id/sourceId -1; 258 title -; 259 icon -; 260 author -; 261 timestamp -",
     "id title icon author"},
    {"highlight",
     "257 id/highlightId -1; 258 kernoId 0; 259 sourceId 0; 260 questionId 0; "
     "261 color - notCompared; 262 start 0; 263 length 0; 264 end 0 local; 265 author -; "
     "266 timestamp -; 267 column 0 local; 268 y1 0 local; 269 y2 0 local; "
     "270 overlapping false local; 271 isValid false local",
     "id kernoId sourceId questionId start length author"},
    {"memo",
     "257 id/memoId -1; 258 sourceId 0; 259 questionId 0; 260 content -; 261 start 0; "
     "262 length 0; 263 end 0 local; 264 author -; 265 timestamp -; 266 y1 0 local; "
     "267 y2 0 local; 268 isValid false local",
     "id sourceId questionId content start length author"},
    {"question", "257 id/questionId -1; 258 question -; 259 questionOrder 0", "id question questionOrder"},
    {"questionAnswer",
     "257 id/answerId -1; 258 questionId -1; 259 sourceId -1; 260 author -; 261 answer -; "
     "262 timestamp -; 263 isHtml false local",
     "id questionId sourceId author answer"},
    {"sourceMetadata",
     "257 id/metadataId -1; 258 sourceId -1; 259 keyId -1; 260 valueId -1; 261 author -; "
     "262 timestamp -",
     "id sourceId keyId valueId author"},
    {"sourceMetadataKey",
     "257 id/keyId -1; 258 multipleChoice false; 259 sortValuesAlphabetically false; 260 key -",
     "id multipleChoice sortValuesAlphabetically key"},
    {"sourceMetadataValue", "257 id/valueId -1; 258 keyId -1; 259 value -", "id keyId value"},
    {"group", "257 id/groupId -1; 258 description/title -; 259 visible true local", "id description"},
    {"groupKerno", "257 id -1; 258 groupId -1; 259 kernoId -1", "id groupId kernoId"},
    {"kernoShortcutKey", "257 shortcutKey -; 258 kernoId -1; 259 author - local", "shortcutKey kernoId"},
    {"preference", "257 key -; 258 value -", "key value"},
    {"chatMessage",
     "257 id/chatMessageId -1; 258 message -; 259 author -; 260 timestamp -; "
     "261 isValid false local",
     "id message author"},
};

/// A field as the golden table writes it.
QString spelled(const FieldInfo& field) {
    QString text = QString::number(field.number) + QLatin1Char(' ') + field.wireName;
    if (field.roleName != field.wireName)
        text += QLatin1Char('/') + field.roleName;
    const QString fallback = field.defaultValue.toString();
    text += QLatin1Char(' ') + (fallback.isEmpty() ? QStringLiteral("-") : fallback);
    if (field.local)
        return text + QLatin1String(" local");
    return field.compared ? text : text + QLatin1String(" notCompared");
}

}  // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void fieldTablesAreAsWrittenDown();
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

void RecordsTest::fieldTablesAreAsWrittenDown() {
    QCOMPARE(std::size(golden), wire::allRecords().size());
    for (wire::Record record : wire::allRecords()) {
        const GoldenRecord& written = golden[static_cast<size_t>(record)];
        QCOMPARE(wire::word(record), QString::fromLatin1(written.word));
        QStringList fields;
        QStringList arguments;
        for (const FieldInfo& field : recordFields(record)) {
            fields << spelled(field);
            if (field.sent)
                arguments << field.wireName;
        }
        QCOMPARE(fields.join(QStringLiteral("; ")), QString::fromLatin1(written.fields));
        QCOMPARE(arguments.join(QLatin1Char(' ')), QString::fromLatin1(written.arguments));
    }
    QCOMPARE(Highlight::queryFields().join(QLatin1Char(' ')),
             QStringLiteral("id kernoId sourceId questionId color start length author timestamp"));
}

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
