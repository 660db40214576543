#include "../tests/models/FakeProject.h"
#include "models/KernoProxyModel.h"
#include "models/StripeLayout.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QTextStream>
#include <malloc.h>

// What the models cost a client with 2,000 kernos, 1,000 sources and 5 properties: time from JSON to filled
// models, memory against that JSON, the refresh after a count, a storm of kerno notifications, and the layout
// of stripes.

namespace {

constexpr int kernoCount = 2000;
constexpr int sourceCount = 1000;
constexpr int keyCount = 5;
constexpr int stormSize = 1000;
constexpr int stripeCount = 2000;
constexpr int rounds = 5;

QJsonObject object(std::initializer_list<QPair<const char*, QJsonValue>> fields) {
    QJsonObject result;
    for (const QPair<const char*, QJsonValue>& field : fields)
        result.insert(QLatin1String(field.first), field.second);
    return result;
}

const QString author = QStringLiteral("Ann Author");
const QString timestamp = QStringLiteral("2024-05-01T10:00:00Z");

QJsonObject kerno(int id, const QString& title) {
    return object({{"id", id},
                   {"parentKernoId", id > 100 ? id % 100 + 1 : -1},
                   {"color", QStringLiteral("#336699")},
                   {"title", title},
                   {"description", QStringLiteral("What participants say about topic %1").arg(id)},
                   {"timestamp", timestamp},
                   {"author", author},
                   {"x", id},
                   {"y", id}});
}

/// The reply to each model's list read.
struct Replies {
    QJsonArray kernos, sources, answers, keys, values, links;
    QByteArray::size_type bytes = 0;

    Replies() {
        for (int id = 1; id <= kernoCount; ++id)
            kernos.append(kerno(id, QStringLiteral("Topic %1").arg(id)));
        for (int id = 1; id <= sourceCount; ++id) {
            sources.append(object({{"id", id},
                                   {"title", QStringLiteral("Interview %1").arg(id)},
                                   {"icon", QString()},
                                   {"author", author},
                                   {"timestamp", timestamp}}));
            answers.append(object({{"id", id},
                                   {"questionId", 1},
                                   {"sourceId", id},
                                   {"author", author},
                                   {"answer", QStringLiteral("A short answer.")},
                                   {"timestamp", timestamp}}));
            for (int keyId = 1; keyId <= keyCount; ++keyId)
                links.append(object({{"id", id * keyCount + keyId},
                                     {"sourceId", id},
                                     {"keyId", keyId},
                                     {"valueId", keyId * 10 + id % 10},
                                     {"author", author},
                                     {"timestamp", timestamp}}));
        }
        for (int keyId = 1; keyId <= keyCount; ++keyId) {
            keys.append(object({{"id", keyId},
                                {"multipleChoice", false},
                                {"sortValuesAlphabetically", false},
                                {"key", QStringLiteral("Property %1").arg(keyId)}}));
            for (int i = 0; i < 10; ++i)
                values.append(object(
                    {{"id", keyId * 10 + i}, {"keyId", keyId}, {"value", QStringLiteral("v%1").arg(i)}}));
        }
        for (const QJsonArray& array : {kernos, sources, answers, keys, values, links})
            bytes += QJsonDocument(array).toJson(QJsonDocument::Compact).size();
    }
};

template <typename Model> void fill(Model& model, const QJsonArray& reply) {
    QList<typename Model::RecordType> records;
    records.reserve(reply.size());
    for (const QJsonValue& element : reply)
        records.append(typename Model::RecordType(element.toObject(), "findAll"));
    model.setData(records);
}

void fillAll(FakeProject& project, const Replies& replies) {
    fill(*project.kernos, replies.kernos);
    fill(*project.answers, replies.answers);
    fill(*project.sources, replies.sources);
    fill(*project.keys, replies.keys);
    fill(*project.values, replies.values);
    fill(*project.links, replies.links);
}

/// The best of some rounds, in milliseconds.
template <typename Work> double milliseconds(Work work) {
    qint64 best = -1;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        work();
        const qint64 took = timer.nsecsElapsed();
        best = best < 0 ? took : qMin(best, took);
    }
    return static_cast<double>(best) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QTextStream out(stdout);
    const Replies replies;
    {
        FakeProject warm;
        fillAll(warm, replies);
    }

    out << "filling the models from JSON: " << milliseconds([&replies] {
        FakeProject project;
        fillAll(project, replies);
    }) << " ms\n";

    const size_t before = mallinfo2().uordblks;
    FakeProject project;
    fillAll(project, replies);
    const size_t used = mallinfo2().uordblks - before;
    out << "memory of the models / bytes of their JSON: " << static_cast<double>(used) / replies.bytes << " ("
        << used / 1024 << " KiB)\n";

    KernoProxyModel topLevel;
    KernoProxyModel children;
    children.setParentKernoId(1);
    children.setSortType(KernoProxyModel::ByNumberOfHighlights);

    QList<KeyVariantValue<int>> counts;
    for (int id = 1; id <= kernoCount; ++id)
        counts.append({id, id % 50, {}});
    out << "refresh of the counts, two views: "
        << milliseconds([&project, &counts] { project.kernos->quoteCounts()->replace(counts); }) << " ms\n";

    int round = 0;
    out << "storm of " << stormSize << " saved kernos, two views: " << milliseconds([&project, &round] {
        ++round;
        for (int i = 1; i <= stormSize; ++i) {
            // Every tenth is new, the others change their title.
            const int id = i % 10 ? i : kernoCount + round * stormSize + i;
            project.kernos->addOrUpdate(
                Kerno(kerno(id, QStringLiteral("Topic %1-%2").arg(id).arg(round)), "onSaved"));
            emit project.kernoUpdated(id);
        }
    }) << " ms\n";

    QRandomGenerator random(1);
    QVector<StripeExtent> stripes;
    for (int i = 0; i < stripeCount; ++i) {
        const int y = i * 4 / 16 * 16;
        stripes.append({y, y + 16 * (1 + random.bounded(10))});
    }
    int columns = 0;
    out << "layout of " << stripeCount
        << " stripes: " << milliseconds([&stripes, &columns] { columns = stripeColumns(stripes).count; })
        << " ms, " << columns << " columns\n";
    return 0;
}
