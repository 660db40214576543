#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/LinkTimings.h"
#include "models/ChatModel.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernoProxyModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "wire/Frames.h"
#include "wire/QueryText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <memory>

// What a large project costs the client, with the data service beside it: opening it with all models filled,
// their memory against their JSON, the counts after one coding, a storm of kerno notifications, and queries
// by criteria at three sizes. Where the service takes part, its share is measured on its own.

namespace {

constexpr int kernoCount = 2000;
constexpr int sourceCount = 1000;
constexpr int keyCount = 5;
constexpr int valuesPerKey = 10;
constexpr int answerLength = 2000;
constexpr int highlightLength = 40;
constexpr int batchSize = 5000;
constexpr int stormSize = 1000;
constexpr int criteriaCount = 10;
constexpr int rounds = 5;
constexpr int bound = 60000;  // ms

const QString author = QStringLiteral("Ann Author");

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

template <typename Work> double milliseconds(Work work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The processor time that the work takes of this thread.
template <typename Work> double threadMilliseconds(Work work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double start = now();
    work();
    return now() - start;
}

/// The best of some rounds, in milliseconds.
template <typename Work> double bestOf(Work work) {
    double best = milliseconds(work);
    for (int round = 1; round < rounds; ++round)
        best = qMin(best, milliseconds(work));
    return best;
}

/// Runs the event loop until the condition holds, tested at each `signal`.
template <typename Sender, typename Signal, typename Condition>
void until(const Sender* sender, Signal signal, Condition condition) {
    if (condition())
        return;
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, [&] {
        if (condition())
            loop.quit();
    });
    QTimer::singleShot(bound, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Does `work` and runs the event loop until the counts of codings have come.
template <typename Work> void untilCounted(KRNFile& file, Work work) {
    int asked = 0;
    work();
    until(file.kernoModel(), &KernoModel::highlightsChanged, [&asked] { return asked++ > 0; });
}

/// A frame of the service, and what it says of `name`.
QString frameOf(const QString& name, const QJsonValue& value) {
    QJsonObject data;
    data.insert(name, value);
    QJsonObject payload;
    payload.insert(text("data"), data);
    return wire::ResponseFrame{0, 200, payload}.toText();
}

QJsonValue valueIn(const QString& frame, const QString& name) {
    const QJsonObject payload = wire::responseFromJson(wire::readFrame(frame).object).payload;
    return payload.value(text("data")).toObject().value(name);
}

Highlight highlight(int id) {
    const int sourceId = 1 + id % sourceCount;
    const int start = (id / sourceCount) * 17 % (answerLength - highlightLength);
    return Highlight(id, 1 + id % kernoCount, sourceId, 1, {}, start, highlightLength,
                     start + highlightLength, id % 3 ? author : text("Bea Author"), {}, 0, 0, 0, false);
}

class Project {
public:
    Project() {
        m_project.insert(text("name"), m_folder.filePath(text("large.krn")));
        restart();
    }

    KRNFile& file() { return *m_file; }

    /// Ends the client and its service, and starts new ones with the project closed.
    bool restart() {
        m_file.reset();
        m_file = std::make_unique<KRNFile>(LinkTimings(), ProjectTimings{0, 0});
        m_file->initModels();
        return m_file->dataHelper()->connection()->connect(false);
    }
    bool open(bool create) { return m_file->openProject(m_project, create, QString(), true, true); }

    void fill();
    void addHighlights(int first, int last);
    /// Returns when everything sent has been stored and has reached the models.
    void settle();

private:
    QTemporaryDir m_folder;
    QJsonObject m_project;
    std::unique_ptr<KRNFile> m_file;
};

void Project::settle() {
    m_file->kernoIds();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Project::fill() {
    DataHelper& helper = *m_file->dataHelper();
    for (int id = 1; id <= kernoCount; ++id) {
        const int parent = id > 100 ? id % 100 + 1 : -1;
        helper.save(Kerno(id, parent, Qt::red, text("Topic %1").arg(id),
                          text("What participants say about topic %1").arg(id), {}, author, id, id),
                    true);
    }
    const QString body(answerLength, QLatin1Char('x'));
    for (int id = 1; id <= sourceCount; ++id) {
        helper.save(Source(id, text("Interview %1").arg(id), QString(), author, {}));
        helper.save(QuestionAnswer(id, 1, id, author, body, {}));
        for (int key = 1; key <= keyCount; ++key)
            helper.save(SourceMetadata((id - 1) * keyCount + key, id, key,
                                       (key - 1) * valuesPerKey + 1 + id % valuesPerKey, author, {}));
    }
    for (int key = 1; key <= keyCount; ++key) {
        helper.save(SourceMetadataKey(key, false, false, text("Property %1").arg(key)));
        for (int value = 1; value <= valuesPerKey; ++value)
            helper.save(SourceMetadataValue((key - 1) * valuesPerKey + value, key, text("v%1").arg(value)));
    }
    settle();
}

void Project::addHighlights(int first, int last) {
    for (int from = first; from <= last; from += batchSize) {
        QList<Highlight> batch;
        for (int id = from; id <= qMin(last, from + batchSize - 1); ++id)
            batch.append(highlight(id));
        m_file->batchSaveHighlights(batch);
    }
    settle();
}

/// Ten rows that together hold most of the codings; some are members of an inner group.
QVariantList criteriaRows() {
    QVariantList rows;
    const auto add = [&rows](const QString& property, const char* op, const QString& value, int level) {
        rows.append(QVariantMap{{text("property"), property},
                                {text("operator"), text(op)},
                                {text("value"), value},
                                {text("junctionOperator"), rows.size() % 2 ? text(" OR") : text(" AND")},
                                {text("level"), level}});
    };
    add(text("HA"), "!=", text("Nobody"), 0);
    add(text("1"), "!=", text("v1"), 0);
    add(text("2"), "!=", text("v2"), 0);
    add(text("3"), "!=", text("v3"), 1);
    add(text("4"), "!=", text("v4"), 1);
    add(text("5"), "!=", text("v5"), 1);
    add(text("QA"), "=", author, 0);
    add(text("HA"), "=", author, 0);
    add(text("1"), "!=", text("v6"), 0);
    add(text("2"), "!=", text("v7"), 0);
    Q_ASSERT(rows.size() == criteriaCount);
    return rows;
}

void measureCriteria(KRNFile& file, int highlightCount) {
    const QVariantList rows = criteriaRows();
    QVariantList result;
    double client = 0;
    double whole = 0;
    // The best of some rounds: what other programs take of the machine is none of ours.
    for (int round = 0; round < rounds; ++round) {
        double own = 0;
        const double elapsed = milliseconds(
            [&] { own = threadMilliseconds([&] { result = file.kernosWithHighlightsAndCriteria(rows); }); });
        whole = round == 0 ? elapsed : qMin(whole, elapsed);
        client = round == 0 ? own : qMin(client, own);
    }
    int found = 0;
    for (const QVariant& map : qAsConst(result))
        found += map.toMap().value(text("highlights")).toList().size();
    std::printf(
        "criteria, 10 rows, %6d highlights: %5.0f ms in all, %4.0f ms of the caller's own; %d found\n",
        highlightCount, whole, client, found);
}

/// The bytes of the service's answer that fills the model of these records.
template <typename T> qint64 answerBytes(KRNFile& file) {
    const QString name = wire::operationName(T::record(), wire::Operation::QueryList);
    const QJsonValue list = file.dataHelper()->queryValue(DataHelper::listText<T>(), name);
    return QJsonDocument(list.toArray()).toJson(QJsonDocument::Compact).size();
}

qint64 answerBytes(KRNFile& file) {
    return answerBytes<Kerno>(file) + answerBytes<Source>(file) + answerBytes<Question>(file) +
           answerBytes<QuestionAnswer>(file) + answerBytes<SourceMetadataKey>(file) +
           answerBytes<SourceMetadataValue>(file) + answerBytes<SourceMetadata>(file);
}

size_t bytesInUse() {
    return mallinfo2().uordblks;
}

void measureOpening(Project& project) {
    double lists = 0;
    double texts = 0;
    size_t before = 0;
    for (int round = 0; round < rounds; ++round) {
        project.restart();
        before = bytesInUse();
        const QuestionAnswerMainModel* answers = project.file().answerModel();
        double opened = 0;
        const double filled = milliseconds([&] {
            opened = milliseconds([&] { project.open(false); });
            until(answers, &IModelListBase::initialDataSet, [&] { return answers->rowCount() > 0; });
        });
        lists = round ? qMin(lists, opened) : opened;
        texts = round ? qMin(texts, filled) : filled;
    }
    project.settle();
    const auto used = static_cast<double>(bytesInUse() - before);
    const qint64 bytes = answerBytes(project.file());
    std::printf("open the project: %.0f ms until all lists but the texts stand, %.0f ms with the texts\n",
                lists, texts);
    std::printf("memory of the open project: %.1f times the %lld KiB of JSON that fills it\n", used / bytes,
                static_cast<long long>(bytes / 1024));
}

void measureCounts(Project& project) {
    KRNFile& file = project.file();
    KernoProxyModel top;
    KernoProxyModel below;
    below.setParentKernoId(1);
    below.setSortType(KernoProxyModel::ByNumberOfHighlights);
    int id = 1;
    const double whole = bestOf([&] { untilCounted(file, [&] { file.saveHighlight(highlight(++id)); }); });
    const QString query = file.kernoModel()->quoteCounts()->query();
    const QString& name = wire::name::quoteCountsInKernos;
    QJsonValue counts;
    const double asked = bestOf([&] { counts = file.dataHelper()->queryValue(query, name); });
    const QString frame = frameOf(name, counts);
    const double client = bestOf([&] {
        file.kernoModel()->quoteCounts()->replace(QuoteCounts::fromJson(valueIn(frame, name).toArray()));
    });
    std::printf("counts after one coding: %.1f ms in all, the service's answer %.1f ms; "
                "reading the answer and updating model and two views %.1f ms\n",
                whole, asked, client);
}

void measureStorm(Project& project) {
    KRNFile& file = project.file();
    KernoProxyModel top;
    KernoProxyModel below;
    below.setParentKernoId(1);
    below.setSortType(KernoProxyModel::ByTitle);
    const QString saved = wire::operationName(wire::Record::Kerno, wire::Operation::CreateOrUpdate);
    QStringList frames;
    for (int i = 1; i <= stormSize; ++i) {
        // Every tenth is new, the others change their title.
        const int id = i % 10 ? i : kernoCount + i;
        frames << frameOf(saved, QJsonObject{{text("id"), id},
                                             {text("parentKernoId"), id > 100 ? id % 100 + 1 : -1},
                                             {text("color"), text("#ff0000")},
                                             {text("title"), text("Renamed %1").arg(id)},
                                             {text("description"), text("What participants say")},
                                             {text("timestamp"), text("2024-05-01T10:00:00Z")},
                                             {text("author"), author},
                                             {text("x"), id},
                                             {text("y"), id}});
    }
    const int before = file.kernoModel()->rowCount();
    const double applied = milliseconds([&] {
        for (const QString& frame : qAsConst(frames))
            file.onKernoSaved(valueIn(frame, saved).toObject());
    });
    const double counted = milliseconds([&] { project.settle(); });
    std::printf("storm of %d saved kernos, two views: %.0f ms, and %.0f ms for what it set off; %d new\n",
                stormSize, applied, counted, file.kernoModel()->rowCount() - before);
}

}  // namespace

int main(int argc, char** argv) {
    // All memory in one arena, so that it can be counted.
    mallopt(M_ARENA_MAX, 1);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QCoreApplication application(argc, argv);
    Project project;
    if (!project.file().dataHelper()->isConnected() || !project.open(true)) {
        std::fputs("The service that KERNOVA_SERVICE_PROGRAM names can't be used.\n", stderr);
        return 1;
    }
    project.fill();
    int count = 0;
    for (int size : {25000, 50000, 100000}) {
        project.addHighlights(count + 1, size);
        count = size;
        measureCriteria(project.file(), count);
    }
    measureOpening(project);
    measureCounts(project);
    measureStorm(project);
    return 0;
}
