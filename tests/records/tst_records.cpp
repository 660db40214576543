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

}  // namespace

class RecordsTest : public QObject {
    Q_OBJECT

private slots:
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
};

KERNOVA_TEST_MAIN(RecordsTest)
#include "tst_records.moc"
