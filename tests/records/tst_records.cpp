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

namespace {

Highlight highlight(int start, int end, int id = 1) {
    return Highlight(id, 1, 1, 1, Qt::red, start, end - start, end, "A"_s, QDateTime(), 0, 0, 0, false);
}

QJsonObject highlightJson() {
    return {{"id"_s, 4},         {"kernoId"_s, 2},         {"sourceId"_s, 3},
            {"questionId"_s, 1}, {"color"_s, "#102030"_s}, {"start"_s, 10},
            {"length"_s, 5},     {"author"_s, "Ada"_s},    {"timestamp"_s, "2026-03-04T05:06:07Z"_s}};
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
    text += QLatin1Char(' ') + (fallback.isEmpty() ? "-"_s : fallback);
    if (field.local)
        return text + QLatin1String(" local");
    return field.compared ? text : text + QLatin1String(" notCompared");
}

}  // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
    void fieldTablesAreAsWrittenDown() {
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
            QCOMPARE(fields.join("; "_s), QString::fromLatin1(written.fields));
            QCOMPARE(arguments.join(QLatin1Char(' ')), QString::fromLatin1(written.arguments));
        }
        QCOMPARE(Highlight::queryFields().join(QLatin1Char(' ')),
                 "id kernoId sourceId questionId color start length author timestamp"_s);
    }

    void fieldTablesAndPropertiesAgree() {
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
        compareLists<KernoShortcutKey>({"author"_s});
    }

    void argumentsFollowTheTable() {
        const Kerno kerno(1, -1, QColor("#e1e120"_s), "a\\ \"b\"\nc"_s, "d"_s, {}, "Ada"_s, 3, 4);
        QCOMPARE(
            kerno.mutationArguments().join(' '),
            "id:1 parentKernoId:-1 color:\"#e1e120\" title:\"a\\\\ \\\"b\\\"\\nc\" description:\"d\" author:\"Ada\" x:3 y:4"_s);
        QCOMPARE(QuestionAnswer(1, 2, 3, "A"_s, "x"_s, QDateTime()).mutationArguments().last(),
                 "answer:\"<body style=\\\"white-space: pre-wrap;\\\">x</body>\""_s);
        // The kind of a value is kept.
        QCOMPARE(Preference("k"_s, 5).mutationArguments().last(), "value:5"_s);
        QCOMPARE(Preference("k"_s, true).mutationArguments().last(), "value:1"_s);
        QCOMPARE(Preference("k"_s, "30"_s).mutationArguments().last(), "value:\"30\""_s);
    }

    void readsWhatItCanAndSaysWhetherItWasAll() {
        const Kerno partial(
            QJsonObject{{"id"_s, 3}, {"title"_s, "T"_s}, {"x"_s, "12"_s}, {"y"_s, QJsonObject()}},
            "queryList");
        QVERIFY(!partial.parsedOk());
        QVERIFY(partial.isValid());
        QVERIFY(!partial.color().isValid());
        QCOMPARE(partial.title(), "T"_s);
        QCOMPARE(partial.parentKernoId(), -1);
        QCOMPARE(partial.x(), 12);
        QCOMPARE(partial.y(), 1);

        const Group group(QJsonObject{{"id"_s, 1}, {"description"_s, "G"_s}}, "");
        QCOMPARE(group.toVariantMap().value("title"_s).toString(), "G"_s);
        QVERIFY(group.isValid());
        QCOMPARE(Preference(QJsonObject{{"key"_s, "k"_s}, {"value"_s, 7}}, "").value().toInt(), 7);
    }

    void readsAndComparesHighlights() {
        const Highlight read(highlightJson(), "queryList");
        QVERIFY(read.isValid());
        QCOMPARE(read.end(), 15);
        QCOMPARE(read.timestamp(), QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), Qt::UTC));

        QJsonObject json = highlightJson();
        json.insert("timestamp"_s, QJsonValue::Null);
        QVERIFY(!Highlight(json, "").parsedOk());
        QVERIFY(!Highlight(json, "").isValid());
        json = highlightJson();
        json.remove("color"_s);
        QCOMPARE(Highlight(json, "").color(), QColor(Qt::black));
        json.insert("color"_s, QJsonValue::Null);
        QCOMPARE(Highlight(json, "").color(), QColor(Qt::black));
        json.insert("start"_s, 2.7);
        json.insert("length"_s, true);
        json.insert("kernoId"_s, "many"_s);
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
        QCOMPARE(read.toJson().toObject().value("color"_s).toString(), "#102030"_s);
    }

    void copiesShareAsTheirKindSays() {
        Highlight first = highlight(3, 9);
        Highlight second = first;
        second.setStart(5);
        QCOMPARE(first.start(), 5);
        second.detach();
        second.setStart(7);
        QCOMPARE(first.start(), 5);

        Kerno kerno(1, -1, Qt::red, "A"_s, {}, {}, {}, 1, 1);
        kerno.setUuid(QUuid::createUuid());
        Kerno copy = kerno;
        copy.setTitle("B"_s);
        QCOMPARE(kerno.title(), "A"_s);
        QVERIFY(copy.uuid().isNull());
        copy.setGroupVisible(false);
        QVERIFY(!copy.visible());
        QVERIFY(kerno.visible());
    }

    void copiesAndFlags() {
        const Question empty;
        QVERIFY(!empty.isValid());
        const Question copy(empty);
        QVERIFY(copy.isValid());
        Question assigned(1, "Q"_s, 1);
        assigned = Question();
        QVERIFY(!assigned.isValid());
    }

    void clipsToTheWindow_data() {
        columns<int, int, int, int, int, int, bool>(
            {"start", "length", "offset", "window", "newStart", "newLength", "valid"});
        addRow("no end", 90, 20, 100, -1, 0, 10, true);
        addRow("limit counts the offset", 90, 20, 100, 5, 0, 10, true);
        addRow("limit bites", 10, 200, 0, 50, 10, 40, true);
        addRow("before the window", 10, 20, 100, -1, 0, -70, false);
        addRow("inside", 110, 20, 100, 50, 10, 20, true);
    }

    void clipsToTheWindow() {
        FETCH(int, start, int, length, int, offset, int, window);
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

    void validity() {
        QVERIFY(!SourceMetadataKey(5, false, false, {}).isValid());
        QVERIFY(SourceMetadata(-1, 1, 1, 1, {}, {}).isValid());
        QVERIFY(!SourceMetadata(1, 1, 1, 0, {}, {}).isValid());
        QVERIFY(!SourceMetadataValue(1, 1, QVariant()).isValid());
        const QDateTime now = QDateTime::currentDateTimeUtc();
        QVERIFY(ChatMessage(1, "m"_s, "a"_s, now).isValid());
        QVERIFY(!ChatMessage(1, "m"_s, "a"_s, QDateTime()).isValid());
        QVERIFY(!KernoShortcutKey("A"_s, 0, {}).isValid());
        QVERIFY(!Source().isValid());
        QVERIFY(Source(1, {}, {}, {}, {}).isValid());
        QVERIFY(!Kerno().isValid());
    }
};

KERNOVA_TEST_MAIN(RecordsTest)
#include "tst_records.moc"
