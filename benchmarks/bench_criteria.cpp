#include "project/QueryRecords.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>

// The client's share of a query with ten rows over 2,000 kernos: every row's answer holds all highlights but
// some of its own. Printed are the times for recognising the records of all answers, for combining the
// answers and for making the result's maps; the time of the service and of parsing its frames isn't in them.

namespace {

constexpr int kernoCount = 2000;
constexpr int rowCount = 10;

QJsonObject highlight(int id, int kernoId, int start) {
    return {{"id", id},        {"kernoId", kernoId}, {"sourceId", 1 + id % 1000},
            {"questionId", 1}, {"color", "#2081e1"}, {"start", start},
            {"length", 40},    {"author", "Ann"},    {"timestamp", "2024-01-02T03:04:05Z"}};
}

QJsonObject kerno(int id, const QJsonArray& highlights) {
    return {{"id", id},
            {"parentKernoId", -1},
            {"color", "#2081e1"},
            {"title", "Trust"},
            {"description", ""},
            {"timestamp", "2024-01-02T03:04:05Z"},
            {"author", "Ann"},
            {"x", 1},
            {"y", 1},
            {"highlights", highlights}};
}

// One highlight in twenty is missing, others for each row. Parsed from text, as answers are.
QJsonArray answer(int highlightCount, int row) {
    const int each = highlightCount / kernoCount;
    QJsonArray kernos;
    for (int k = 0; k < kernoCount; ++k) {
        QJsonArray list;
        for (int i = 0; i < each; ++i) {
            const int id = 1 + k * each + i;
            if ((id + row) % 20 != 0)
                list.append(highlight(id, k + 1, i * 25));
        }
        kernos.append(kerno(k + 1, list));
    }
    return QJsonDocument::fromJson(QJsonDocument(kernos).toJson(QJsonDocument::Compact)).array();
}

void measure(int highlightCount) {
    QVector<QJsonArray> answers;
    for (int row = 0; row < rowCount; ++row)
        answers.append(answer(highlightCount, row));
    QueryRecords records;
    QVector<criteria::Term> terms;
    QElapsedTimer timer;
    timer.start();
    for (const QJsonArray& rows : qAsConst(answers))
        terms.append({0, terms.size() % 2 == 0, records.read(rows)});
    const qint64 recognised = timer.restart();
    const criteria::Results results = criteria::evaluate(terms);
    const qint64 combined = timer.restart();
    records.toMaps(results);
    std::printf("%7d highlights: recognise %4lld ms, combine %3lld ms, maps %4lld ms\n", highlightCount,
                static_cast<long long>(recognised), static_cast<long long>(combined),
                static_cast<long long>(timer.elapsed()));
}

}  // namespace

int main() {
    for (int count : {25000, 50000, 100000})
        measure(count);
    return 0;
}
