#include "store/Database.h"
#include "store/Migrations.h"
#include "store/ProjectFile.h"
#include "store/ProjectStore.h"
#include "store/Sql.h"
#include "tests_support/TestMain.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {

/// A connection that knows nothing of the store.
bool runSql(const QString& path, const QStringList& texts) {
    const QString name = "stranger"_s;
    bool ok = true;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, name);
        database.setDatabaseName(path);
        ok = database.open();
        QSqlQuery query(database);
        for (const QString& text : texts)
            ok = ok && query.exec(text);
    }
    QSqlDatabase::removeDatabase(name);
    return ok;
}

}  // namespace

class TestProjectFile : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    QString m_path;

    QStringList files() const {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

private slots:
    void init() {
        m_path = m_folder.filePath("p.krn"_s);
        QFile::remove(m_path);
    }

    void makesAWholeFile() {
        QString message;
        std::unique_ptr<ProjectStore> store = ProjectStore::open(m_path, &message);
        QVERIFY2(store, qPrintable(message));
        QCOMPARE(files(), QStringList{"p.krn"_s});
        QCOMPARE(bytesOf(m_path).mid(68, 4), QByteArrayLiteral("KRN1"));
        for (const QString& setting : {"synchronous"_s, "cell_size_check"_s}) {
            Statement statement = store->database().statement("PRAGMA "_s + setting);
            QVERIFY(statement.run() && statement.next());
            QCOMPARE(statement.value(0).toInt(), setting == QLatin1String("synchronous") ? 2 : 1);
        }
    }

    void opensFilesOfTheFirstVersion() {
        // Written down from a file of that version: what is out there has to open for ever.
        const QString text = QString::fromUtf8(bytesOf(QStringLiteral(KERNOVA_FIRST_VERSION)));
        QVERIFY(runSql(m_path, text.split(";\n"_s, Qt::SkipEmptyParts)));
        QString message;
        std::unique_ptr<ProjectStore> store = ProjectStore::openExisting(m_path, &message);
        QVERIFY2(store, qPrintable(message));
        for (wire::Record record : wire::allRecords()) {
            Selection all{&tableOf(record), {}, {}};
            for (size_t i = 0; i < all.table->columns.size(); ++i)
                all.columns.push_back(static_cast<int>(i));
            int rows = 0;
            QVERIFY(store->select(all, [&](const RowView&) { ++rows; }).ok());
            QCOMPARE(rows, 1);
        }
        store.reset();

        // A program with one field more takes it along, and knows it again.
        Migrations later = migrations();
        later.push_back({"ALTER TABLE tbl_kerno ADD COLUMN \"weight\" INTEGER NOT NULL DEFAULT 3"_s});
        Table wider = tableOf(wire::Record::Kerno);
        wider.columns.push_back({"weight"_s, "weight"_s, FieldType::Integer, true, false, {}});
        const int weight = static_cast<int>(wider.columns.size()) - 1;
        for (int opening = 0; opening < 2; ++opening) {
            const std::unique_ptr<Database> database = projectfile::open(m_path, &message, later);
            QVERIFY2(database, qPrintable(message));
            Statement row =
                database->statement(sql::select({&wider, {wider.indexOf("title"_s), weight}, {}}));
            QVERIFY(row.run() && row.next());
            QCOMPARE(row.value(0).toString(), "trust"_s);
            QCOMPARE(row.value(1).toInt(), 3);
        }
        QVERIFY(!projectfile::open(m_path, &message));
        QVERIFY2(message.contains("newer version"_s), qPrintable(message));
    }

    void isNotRuinedByWhatACrashLeft() {
        // A journal with a page in it that isn't played back yet, and no file of its name.
        QVERIFY(projectfile::create(m_path).ok());
        const QString journal = m_path + "-journal"_s;
        QVERIFY(runSql(
            m_path, {"PRAGMA journal_mode = PERSIST"_s, "INSERT INTO tbl_preference VALUES ('a', '1')"_s}));
        QByteArray bytes = bytesOf(journal);
        const QByteArray magic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7\x00\x00\x00\x01", 12);
        bytes.replace(0, magic.size(), magic);
        QVERIFY(QFile::remove(m_path));
        writeBytes(journal, bytes);
        QString message;
        const std::unique_ptr<ProjectStore> store = ProjectStore::open(m_path, &message);
        QVERIFY2(store, qPrintable(message));
        QCOMPARE(files(), QStringList{"p.krn"_s});
        // A file that can't come leaves it to the one whose it is.
        const QString folder = m_folder.filePath("taken.krn"_s);
        QVERIFY(QDir().mkpath(folder) && QFile::copy(m_path, folder + "-journal"_s));
        QVERIFY(!projectfile::create(folder).ok());
        QVERIFY(QFile::remove(folder + "-journal"_s));
    }

    void refusesAndLeavesUntouched_data() {
        columns<QStringList, QString>({"changes", "reason"});
        const auto row = [](const char* name, const QStringList& changes, const char* reason) {
            addRow(name, changes, QString::fromLatin1(reason));
        };
        row("other application", {"PRAGMA application_id = 77"_s}, "isn't a Kernova project");
        row("newer version", {"PRAGMA user_version = 4000"_s}, "newer version");
        row("no version", {"PRAGMA user_version = 0"_s}, "isn't complete");
        row("other journal", {"PRAGMA journal_mode = WAL"_s}, "isn't a Kernova project");
        row("trigger", {"CREATE TRIGGER t AFTER INSERT ON tbl_kerno BEGIN DELETE FROM tbl_source; END"_s},
            "trigger");
        row("view", {"CREATE VIEW v AS SELECT * FROM tbl_kerno"_s}, "view");
        row("table", {"CREATE TABLE other (a INTEGER)"_s}, "table");
        row("column", {"ALTER TABLE tbl_kerno ADD COLUMN more TEXT"_s}, "tbl_kerno");
        row("missing index", {"DROP INDEX idx_memo_sourceId_questionId"_s}, "missing");
    }

    void refusesAndLeavesUntouched() {
        FETCH(QStringList, changes, QString, reason);
        QVERIFY(projectfile::create(m_path).ok());
        QVERIFY(runSql(m_path, changes));
        const QByteArray before = bytesOf(m_path);
        QString message;
        QVERIFY(!ProjectStore::open(m_path, &message));
        QVERIFY2(message.contains(reason), qPrintable(message));
        QCOMPARE(bytesOf(m_path), before);
        QCOMPARE(files(), QStringList{"p.krn"_s});
    }

    void refusesWhatIsNoDatabase() {
        for (const QByteArray& contents :
             {QByteArray(), QByteArray("An interview."), QByteArray(5000, 'x')}) {
            writeBytes(m_path, contents);
            QString message;
            QVERIFY(!ProjectStore::open(m_path, &message) && !message.isEmpty());
            QCOMPARE(bytesOf(m_path), contents);
        }
    }

    void refusesADamagedFile() {
        QVERIFY(projectfile::create(m_path).ok());
        QVERIFY(
            runSql(m_path, {"INSERT INTO tbl_kerno (id, title) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                            "SELECT i + 1 FROM n WHERE i < 2000) SELECT i, 'title ' || i FROM n"_s}));
        QByteArray bytes = bytesOf(m_path);
        // Whole pages of rubbish in the middle, the header and the definitions as they were.
        for (int at = bytes.size() / 2; at < bytes.size() / 2 + 12000; ++at)
            bytes[at] = static_cast<char>(at * 7);
        writeBytes(m_path, bytes);
        QString message;
        QVERIFY(!ProjectStore::open(m_path, &message));
        QVERIFY2(message.contains("damaged"_s) || message.contains("malformed"_s), qPrintable(message));
        QCOMPARE(bytesOf(m_path), bytes);
    }

    void rollsBackWhatWasNotCommitted() {
        QString message;
        std::unique_ptr<ProjectStore> store = ProjectStore::open(m_path, &message);
        QVERIFY(store);
        const Table& table = tableOf(wire::Record::Kerno);
        RecordValues values(table.columns.size());
        values[static_cast<size_t>(table.idColumn)] = 12;
        QVERIFY(store->save(table, values).ok());
        qint64 id = 0;
        QVERIFY(store->lastId(wire::Record::Kerno, true, &id).ok());
        QCOMPARE(id, qint64(13));
        store->rollback();
        QVERIFY(store->lastId(wire::Record::Kerno, false, &id).ok());
        QCOMPARE(id, qint64(0));
        QVERIFY(store->save(table, values).ok());
        store.reset();
        store = ProjectStore::open(m_path, &message);
        int rows = 0;
        QVERIFY(store->select({&table, {table.idColumn}, {}}, [&](const RowView&) { ++rows; }).ok());
        QCOMPARE(rows, 0);
    }

    void noticesIdsOfAnotherProgram() {
        QString message;
        const std::unique_ptr<ProjectStore> store = ProjectStore::open(m_path, &message);
        const std::unique_ptr<ProjectStore> other = ProjectStore::open(m_path, &message);
        QVERIFY(store && other);
        qint64 id = 0;
        QVERIFY(other->lastId(wire::Record::Memo, true, &id).ok() && other->commit().ok());
        QVERIFY(store->lastId(wire::Record::Memo, true, &id).ok() && store->commit().ok());
        QCOMPARE(id, qint64(2));
    }
};

KERNOVA_TEST_MAIN(TestProjectFile)
#include "tst_projectfile.moc"
