#include "OddTexts.h"
#include "export/CsvExport.h"
#include "tests_support/TestMain.h"

#include <csignal>
#include <sys/resource.h>

using Row = QStringList;

/// The tables of a project at the real service, as another reader sees them.
class tst_CsvExport : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theTablesHoldTheProject();
    void whatCannotBeWrittenStaysAsItWas();

private:
    QList<Row> expected(const QString& name) const;
    QList<QJsonObject> records(const char* list) const;
    Row properties(int sourceId) const;
    QString passage(const QJsonObject& record) const;

    UndoProject m_project;
    QJsonObject m_json;
    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// What a spreadsheet reads: RFC 4180.
QList<Row> parsed(const QString& text) {
    QList<Row> rows{{QString()}};
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        QString& field = rows.last().last();
        if (c == '"' && quoted && text.mid(i + 1, 1) == QLatin1String("\"") && ++i > 0)
            field += c;
        else if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            rows.last() << QString();
        else if (c == '\n' && !quoted)
            rows << Row{QString()};
        else
            field += c;
    }
    rows.removeLast();
    return rows;
}

QString cleaned(const QJsonValue& value) {
    return value.toString().replace('\f', '\n').replace("\u00e2\u0080\u0099"_s, "'");
}

QString number(const QJsonValue& value) {
    return QString::number(value.toInt());
}

QString time(const QJsonObject& record, bool iso) {
    const QDateTime time = QDateTime::fromString(record["timestamp"].toString(), Qt::ISODate);
    return iso ? time.toString(Qt::ISODate) : time.toString();
}

}  // namespace

void tst_CsvExport::init() {
    QVERIFY2(m_project.open(), qPrintable(m_project.error));
    addOddTexts(m_project);
    m_json = m_project.json();
    m_folder = std::make_unique<QTemporaryDir>();
}

QList<QJsonObject> tst_CsvExport::records(const char* list) const {
    QList<QJsonObject> records;
    for (const QJsonValue& record : m_json.value(QString::fromLatin1(list)).toArray())
        records << record.toObject();
    return records;
}

Row tst_CsvExport::properties(int sourceId) const {
    Row row;
    for (const QJsonObject& key : records("source_metadata_keys")) {
        Row values;
        for (const QJsonObject& link : records("source_metadatas")) {
            if (link["sourceId"].toInt() != sourceId || link["keyId"] != key["id"])
                continue;
            for (const QJsonObject& value : records("source_metadata_values")) {
                if (value["id"] == link["valueId"])
                    values << cleaned(value["value"]);
            }
        }
        row << values.join(',');
    }
    return row << QString();
}

QString tst_CsvExport::passage(const QJsonObject& record) const {
    for (const QJsonObject& answer : records("question_answers")) {
        if (answer["sourceId"] == record["sourceId"] && answer["questionId"] == record["questionId"]) {
            const QString text = QuestionAnswer(answer, "test").plainAnswer();
            const QString part = text.mid(record["start"].toInt(), record["length"].toInt());
            return QString::fromUtf8(part.toUtf8());
        }
    }
    return {};
}

QList<Row> tst_CsvExport::expected(const QString& name) const {
    QHash<int, QJsonObject> sources;
    QHash<int, QJsonObject> kernos;
    Row keys;
    Row titles;
    for (const QJsonObject& source : records("sources")) {
        sources.insert(source["id"].toInt(), source);
        titles << cleaned(source["title"]);
    }
    for (const QJsonObject& kerno : records("kernos"))
        kernos.insert(kerno["id"].toInt(), kerno);
    for (const QJsonObject& key : records("source_metadata_keys"))
        keys << cleaned(key["key"]);
    keys << QString();
    titles << QString();
    const auto head = [](const char* names) { return QString::fromLatin1(names).split(','); };
    const auto titleOf = [&](const QJsonObject& r) {
        return cleaned(sources[r["sourceId"].toInt()]["title"]);
    };
    QList<Row> rows;
    if (name == "Memos.csv") {
        rows << head("memoID, author, sourceID, sourceTitle, questionID, memo, quote") + keys;
        for (const QJsonObject& r : records("memos"))
            rows << Row{number(r["id"]), cleaned(r["author"]),    number(r["sourceId"]),
                        titleOf(r),      number(r["questionId"]), cleaned(r["content"]),
                        passage(r)} +
                        properties(r["sourceId"].toInt());
    } else if (name == "Quotes.csv") {
        rows << head("highlightID, color, start, length, end, author, kernoID, kernoTitle, sourceID, "
                     "sourceTitle, questionID, quote") +
                    keys;
        for (const QJsonObject& r : records("highlights")) {
            const QJsonObject kerno = kernos[r["kernoId"].toInt()];
            rows << Row{number(r["id"]),
                        QColor(kerno["color"].toString()).name(),
                        number(r["start"]),
                        number(r["length"]),
                        QString::number(r["start"].toInt() + r["length"].toInt()),
                        cleaned(r["author"]),
                        number(r["kernoId"]),
                        cleaned(kerno["title"]),
                        number(r["sourceId"]),
                        titleOf(r),
                        number(r["questionId"]),
                        passage(r)} +
                        properties(r["sourceId"].toInt());
        }
    } else if (name == "Kernos.csv") {
        rows << head("kernoID, parentKernoID, color, title, description, timestamp, author, groups, x, y, "
                     "quotes") +
                    titles;
        for (const QJsonObject& r : records("kernos")) {
            Row groups;
            for (const QJsonObject& link : records("group_kernos")) {
                for (const QJsonObject& group : records("groups")) {
                    if (link["kernoId"] == r["id"] && link["groupId"] == group["id"])
                        groups << cleaned(group["description"]);
                }
            }
            rows << Row{number(r["id"]),
                        number(r["parentKernoId"]),
                        QColor(r["color"].toString()).name(),
                        cleaned(r["title"]),
                        cleaned(r["description"]),
                        time(r, false),
                        cleaned(r["author"]),
                        groups.join(','),
                        number(r["x"]),
                        number(r["y"]),
                        QString::number(m_project.file.totalHighlightsCountByKernoId(r["id"].toInt()))};
            const QVariantList overview = m_project.file.highlightsOverviewPerSourceForKerno(r["id"].toInt());
            for (const QJsonObject& source : records("sources")) {
                QString cell = "0 of %1"_s.arg(m_project.file.highlightsCount(source["id"].toInt()));
                for (int i = overview.size() - 1; i >= 0; --i) {
                    const QVariantMap share = overview[i].toMap();
                    if (share["sourceTitle"].toString() == source["title"].toString())
                        cell = "%1 of %2"_s.arg(share["kernoHighlights"].toInt())
                                   .arg(share["sourceHighlights"].toInt());
                }
                rows.last() << cell;
            }
            rows.last() << QString();
        }
    } else if (name == "Sources.csv") {
        rows << head("sourceID, title, author, timestamp, answer") + keys;
        for (const QJsonObject& r : records("sources")) {
            QString text;
            for (const QJsonObject& answer : records("question_answers")) {
                if (answer["sourceId"] == r["id"])
                    text += QuestionAnswer(answer, "test").plainAnswer();
            }
            rows << Row{number(r["id"]), cleaned(r["title"]), cleaned(r["author"]), time(r, false), text} +
                        properties(r["id"].toInt());
        }
    } else {
        rows << head("author, message, timestamp,");
        for (const QJsonObject& r : records("chat_messages"))
            rows << Row{cleaned(r["author"]), cleaned(r["message"]), time(r, true), QString()};
    }
    return rows;
}

void tst_CsvExport::theTablesHoldTheProject() {
    qint64 last = -1;
    const csv::Result result =
        csv::exportProject(m_project.file, m_folder->path(), [&](qint64 done, qint64 of) {
            const bool rises = done >= last && done <= of;
            last = done;
            return rises;
        });
    QCOMPARE(result.sentence, QString());
    QCOMPARE(result.written, 5);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 5);
    for (const QString& name : csv::fileNames()) {
        const QList<Row> rows = parsed(QString::fromUtf8(bytesOf(m_folder->filePath(name))));
        const QList<Row> wanted = expected(name);
        QVERIFY(wanted.size() > 1);
        for (int i = 0; i < wanted.size(); ++i)
            QVERIFY2(rows.value(i) == wanted[i],
                     qPrintable(name + "\n" + rows.value(i).join('|') + "\n" + wanted[i].join('|')));
        QCOMPARE(rows.size(), wanted.size());
    }
}

// A folder that isn't there, a name that is taken, a disk that is full, a user who cancels.
void tst_CsvExport::whatCannotBeWrittenStaysAsItWas() {
    const auto state = [&] {
        QStringList files;
        for (const QString& name :
             QDir(m_folder->path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot))
            files << name + bytesOf(m_folder->filePath(name));
        return files;
    };
    writeBytes(m_folder->filePath("Quotes.csv"), "before");
    const QStringList untouched = state();

    const csv::Result nowhere = csv::exportProject(m_project.file, m_folder->filePath("nowhere"));
    QVERIFY(nowhere.written == 0 && nowhere.sentence.contains("nowhere does not exist"));

    int calls = 0;
    const csv::Result cancelled =
        csv::exportProject(m_project.file, m_folder->path(), [&](qint64, qint64) { return ++calls < 4; });
    QVERIFY(cancelled.cancelled && cancelled.written == 0 && cancelled.sentence.isEmpty());
    QCOMPARE(state(), untouched);

    signal(SIGXFSZ, SIG_IGN);
    const auto exportWithRoom = [&](rlim_t bytes) {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit full{bytes, limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
        const csv::Result result = csv::exportProject(m_project.file, m_folder->path());
        setrlimit(RLIMIT_FSIZE, &limit);
        return result;
    };
    const csv::Result fullDisk = exportWithRoom(10);
    QVERIFY2(fullDisk.written == 0 && fullDisk.sentence.contains("Memos.csv can't be written"),
             qPrintable(fullDisk.sentence));
    QCOMPARE(state(), untouched);

    // A write that stops in its middle.
    m_project.file.saveAnswer(QuestionAnswer(1, 1, 1, "Ann", QString(300000, 'x'), {}));
    m_project.settle();
    const csv::Result half = exportWithRoom(100000);
    QVERIFY2(half.written == 4 && half.sentence.contains("Sources.csv can't be written"),
             qPrintable(half.sentence));
    QVERIFY(!QFile::exists(m_folder->filePath("Sources.csv")) &&
            QFile::remove(m_folder->filePath("Memos.csv")));

    QVERIFY(QDir(m_folder->path()).mkdir("Memos.csv"));
    const csv::Result taken = csv::exportProject(m_project.file, m_folder->path());
    QVERIFY(taken.written == 4 && taken.sentence.contains("Memos.csv"));
    QVERIFY(bytesOf(m_folder->filePath("Quotes.csv")).startsWith("highlightID"));
}

KERNOVA_TEST_MAIN(tst_CsvExport)
#include "tst_csvexport.moc"
