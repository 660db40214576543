#include "exchange/ArchiveWork.h"
#include "exchange/QDPXExporter.h"
#include "import/archive/ZipArchive.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "merge/ProjectMerger.h"
#include "project/KRNFile.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>
#include <QXmlStreamReader>
#include <atomic>
#include <cstdio>
#include <malloc.h>
#include <memory>
#include <unistd.h>

// What archives in and out of projects cost at the real service, and merging: "bench_exchange", or
// "bench_exchange large". Each is measured against the bare work of the libraries in the same run.

namespace {

struct Size {
    int sources;
    int characters;
    int codes;
    int codings;
};

QByteArray fileOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// This process and the service that it has started.
QStringList processes() {
    QStringList all{QString::number(getpid())};
    for (const QString& pid : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")})) {
        const QByteArrayList stat = fileOf(QStringLiteral("/proc/%1/stat").arg(pid)).split(' ');
        if (stat.value(3).toInt() == getpid())
            all << pid;
    }
    return all;
}

/// The greatest sum of what both have in memory at one time since `begin`.
class Memory {
public:
    Memory() : m_processes(processes()), m_thread(QThread::create([this] { watch(); })) { m_thread->start(); }
    ~Memory() {
        m_ended = true;
        m_thread->wait();
    }
    /// What the benchmark itself has left behind is given back first.
    void begin() {
        malloc_trim(0);
        m_peak = 0;
    }
    double peakMegabytes() const { return static_cast<double>(m_peak) / 1024 / 1024; }

private:
    void watch() {
        const qint64 pageBytes = sysconf(_SC_PAGESIZE);
        while (!m_ended) {
            qint64 pages = 0;
            for (const QString& pid : m_processes)
                pages += fileOf(QStringLiteral("/proc/%1/statm").arg(pid)).split(' ').value(1).toLongLong();
            if (pages * pageBytes > m_peak)
                m_peak = pages * pageBytes;
            QThread::msleep(5);
        }
    }

    const QStringList m_processes;
    std::atomic<qint64> m_peak{0};
    std::atomic<bool> m_ended{false};
    std::unique_ptr<QThread> m_thread;
};

double processorSeconds() {
    qint64 ticks = 0;
    for (const QString& pid : processes()) {
        const QByteArray stat = fileOf(QStringLiteral("/proc/%1/stat").arg(pid));
        const QByteArrayList fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        ticks += fields.value(11).toLongLong() + fields.value(12).toLongLong();
    }
    return static_cast<double>(ticks) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

struct Cost {
    double seconds;
    double processor;  ///< seconds of this process and the service together
};

Cost costOf(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    const double before = processorSeconds();
    work();
    return {static_cast<double>(timer.nsecsElapsed()) / 1e9, processorSeconds() - before};
}

void print(const char* what, const Cost& took, const Cost& bare, const char* bareWhat, double peak) {
    std::printf("%s  %.2f s, processor %.2f s; %s %.2f s, processor %.2f s: %.1f x, by processor %.1f x; "
                "peak %.0f MB\n",
                what, took.seconds, took.processor, bareWhat, bare.seconds, bare.processor,
                took.seconds / bare.seconds, took.processor / bare.processor, peak);
}

// Words of a small vocabulary, as texts of people are; now and then a character that is none of ASCII.
QString textOf(quint32 seed, int length) {
    static const QStringList words = [] {
        QRandomGenerator random(1);
        QStringList made;
        for (int i = 0; i < 4000; ++i) {
            QString word;
            for (int n = 2 + static_cast<int>(random.bounded(8)); n > 0; --n)
                word += QChar('a' + static_cast<int>(random.bounded(26)));
            made << word;
        }
        made << QString::fromUtf8("für") << QString::fromUtf8("“quoted”") << "&"
             << QString::fromUtf8("\U0001F600");
        return made;
    }();
    QRandomGenerator random(seed);
    QString text;
    text.reserve(length + 12);
    while (text.size() < length)
        text += words.at(static_cast<int>(random.bounded(words.size()))) + (random.bounded(90) ? ' ' : '\n');
    return text;
}

ProjectRecords make(const Size& size, int firstTitle) {
    const QDateTime time = QDateTime::currentDateTimeUtc();
    const QString author = QStringLiteral("Ann");
    QRandomGenerator random(7);
    ProjectRecords r;
    r.questions = {Question(1, QString(), 1)};
    for (int i = 1; i <= size.codes; ++i)
        r.kernos.append(Kerno(i, i > 20 ? 1 + i % 20 : -1, QColor(Qt::red), QStringLiteral("Code %1").arg(i),
                              QString(), time, author, 5, 6));
    for (int i = 1; i <= size.sources; ++i) {
        const int title = firstTitle + i;
        r.sources.append(Source(i, QStringLiteral("Interview %1").arg(title), QString(), author, time));
        r.answers.append(QuestionAnswer(
            i, 1, i, author, textOf(static_cast<quint32>(title), size.characters).toHtmlEscaped(), time));
    }
    for (int i = 1; i <= size.codings; ++i) {
        const int start = static_cast<int>(random.bounded(size.characters - 200));
        r.highlights.append(Highlight(i, 1 + static_cast<int>(random.bounded(size.codes)),
                                      1 + i % size.sources, 1, {}, start, 150, start + 150, author, time, 0,
                                      0, 0, false));
    }
    return r;
}

// Unzipping, parsing and one transaction of the same rows, without any of this program.
Cost bareImport(const QString& archive, const ProjectRecords& rows, const QString& database) {
    return costOf([&] {
        ZipLimits limits;
        limits.entryBytes = limits.totalBytes = qint64(1) << 30;
        ZipArchive zip(archive, limits);
        for (const QString& name : zip.names()) {
            const QByteArray bytes = zip.read(name);
            if (!name.endsWith(QLatin1String(".qde")))
                continue;
            QXmlStreamReader xml(bytes);
            while (!xml.atEnd())
                xml.readNext();
        }
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bare"));
        db.setDatabaseName(database);
        db.open();
        db.transaction();
        QSqlQuery query(db);
        query.exec(QStringLiteral("create table a (id integer primary key, q, s, author, text, time)"));
        query.exec(
            QStringLiteral("create table h (id integer primary key, k, s, q, start, len, author, time)"));
        query.exec(QStringLiteral("create index hs on h (s, q)"));
        query.exec(QStringLiteral("create index hk on h (k)"));
        query.prepare(QStringLiteral("insert into a values (?,?,?,?,?,?)"));
        for (const QuestionAnswer& a : rows.answers) {
            const QVariant values[] = {
                a.id(), 1, a.sourceId(), a.author(), a.storedAnswer(), "2020-01-01T00:00:00Z"};
            for (int i = 0; i < 6; ++i)
                query.bindValue(i, values[i]);
            query.exec();
        }
        query.prepare(QStringLiteral("insert into h values (?,?,?,?,?,?,?,?)"));
        for (const Highlight& h : rows.highlights) {
            const QVariant values[] = {h.id(),    h.kernoId(), h.sourceId(), 1,
                                       h.start(), h.length(),  h.author(),   "2020-01-01T00:00:00Z"};
            for (int i = 0; i < 8; ++i)
                query.bindValue(i, values[i]);
            query.exec();
        }
        db.commit();
        db.close();
    });
}

Cost bareDeflate(const QString& archive) {
    ZipLimits limits;
    limits.entryBytes = limits.totalBytes = qint64(1) << 30;
    ZipArchive zip(archive, limits);
    QList<QByteArray> contents;
    for (const QString& name : zip.names())
        contents << zip.read(name);
    return costOf([&] {
        for (const QByteArray& bytes : qAsConst(contents))
            qCompress(bytes);
    });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "minimal");
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    const QApplication application(argc, argv);
    const bool large = argc > 1 && qstrcmp(argv[1], "large") == 0;
    const Size size = large ? Size{1000, 100000, 1000, 115000} : Size{200, 50000, 300, 23000};
    const QTemporaryDir folder;
    const auto path = [&folder](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    const auto named = [&path](const char* name) {
        return QJsonObject{{QStringLiteral("name"), path(name)}};
    };
    const auto check = [](bool good, const char* what) {
        if (!good)
            qFatal("%s", what);
    };

    const auto file = std::make_unique<KRNFile>(nullptr);
    file->initModels();
    DataHelper& helper = *file->dataHelper();
    check(helper.connection()->connect(false), "no service");
    Memory memory;
    {
        Project project(named("made.krn"));
        project.records() = make(size, 0);
        check(
            QDPXExporter(ExchangeForm::Own, QStringLiteral("Ann")).exportProject(project, path("made.qdpx")),
            "make");
        const Cost bare = bareImport(path("made.qdpx"), project.records(), path("bare.db"));
        project.records() = {};
        memory.begin();
        const Cost took = costOf([&] {
            check(archive::import(helper, path("made.qdpx"), named("imported.krn"), {}, {}).status, "import");
        });
        print("import", took, bare, "unzipping, parsing and one transaction", memory.peakMegabytes());
    }
    memory.begin();
    check(file->openProject(named("imported.krn"), false, QString(), true), "open");
    check(file->waitForTexts(), "texts");
    const double opened = memory.peakMegabytes();
    for (const ExchangeForm form : {ExchangeForm::Own, ExchangeForm::Standard}) {
        memory.begin();
        const Cost took =
            costOf([&] { check(archive::exportOpen(*file, path("out.qdpx"), form), "export"); });
        const double peak = memory.peakMegabytes();
        print("export", took, bareDeflate(path("out.qdpx")), "deflating the same bytes", peak);
    }
    std::printf("opening had a peak of %.0f MB\n", opened);
    file->close();
    {
        Project other(named("other.krn"));
        other.records() = make(size, size.sources / 2);
        check(other.save(helper, named("other.krn"), {}).status, "save");
    }
    ProjectMerger merger(&helper);
    check(merger.setMaster(named("imported.krn"), {}) && merger.addProject(named("other.krn"), {}), "inputs");
    memory.begin();
    const Cost took = costOf([&] { check(merger.merge(named("merged.krn"), {}), "merge"); });
    std::printf("merge   %.2f s, processor %.2f s; peak %.0f MB\n", took.seconds, took.processor,
                memory.peakMegabytes());
    file->closeAndReset();
    return 0;
}
