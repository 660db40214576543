#include "export/ReportTexts.h"

#include <QDebug>

namespace {

using Quote = ReportData::Quote;

double percentage(double length, int whole) {
    return whole == 0 ? 0.0 : length * 100.0 / whole;
}

QJsonObject json(const ReportData& data, const Quote& quote) {
    QJsonObject object = quote.passage;
    object.insert(QStringLiteral("highlightId"), quote.highlightId);
    object.insert(QStringLiteral("start"), quote.start);
    object.insert(QStringLiteral("codedBy"), quote.author);
    object.insert(QStringLiteral("codedAt"), quote.timestamp);
    object.insert(QStringLiteral("source_percentage"),
                  percentage(quote.length, data.lengths.value(quote.sourceId)));
    object.insert(QStringLiteral("global_percentage"), percentage(quote.length, data.totalLength));
    return object;
}

/// The quotes of a kerno by source, as they follow in the query.
QHash<int, QVector<const Quote*>> bySourceId(const ReportData::KernoQuotes& kerno) {
    QHash<int, QVector<const Quote*>> quotes;
    for (const Quote& quote : kerno.quotes)
        quotes[quote.sourceId].append(&quote);
    return quotes;
}

bool isRecord(int id, const char* what, int index) {
    if (id <= 0)
        qWarning("%s %d", what, index);
    return id > 0;
}

int sum(const QVector<const Quote*>& quotes) {
    int length = 0;
    for (const Quote* quote : quotes)
        length += quote->length;
    return length;
}

}  // namespace

void reporttexts::byCode(const ReportData& data, const Sink& sink) {
    for (int i = 0; i < data.codedKernos.size(); ++i) {
        const ReportData::KernoQuotes& kerno = data.codedKernos.at(i);
        if (!isRecord(kerno.kernoId, "getTextSortedByCodeJSON(): NULL Kerno at index", i))
            continue;
        const auto ofSource = bySourceId(kerno);
        QJsonArray quotes;
        for (int sourceId : data.sourceIds) {
            for (const Quote* quote : ofSource.value(sourceId))
                quotes.append(json(data, *quote));
        }
        if (!quotes.isEmpty())
            sink({{QStringLiteral("kernoId"), kerno.kernoId}, {QStringLiteral("quotes"), quotes}});
    }
}

void reporttexts::bySource(const ReportData& data, const Sink& sink) {
    QHash<int, QVector<const Quote*>> ofSource;
    for (const ReportData::KernoQuotes& kerno : data.codedKernos) {
        for (const Quote& quote : kerno.quotes)
            ofSource[quote.sourceId].append(&quote);
    }
    for (int i = 0; i < data.sourceIds.size(); ++i) {
        const int sourceId = data.sourceIds.at(i);
        if (!isRecord(sourceId, "getTextSortedBySourceJSON(): NULL Source at index", i))
            continue;
        QJsonArray quotes;
        for (const Quote* quote : ofSource.value(sourceId)) {
            QJsonObject object = json(data, *quote);
            object.insert(QStringLiteral("kernoId"), quote->kernoId);
            quotes.append(object);
        }
        if (!quotes.isEmpty())
            sink({{QStringLiteral("sourceId"), sourceId}, {QStringLiteral("quotes"), quotes}});
    }
}

void reporttexts::byQuestion(const ReportData& data, const Sink& sink) {
    QHash<int, QJsonArray> ofQuestion;
    for (const ReportData::KernoQuotes& kerno : data.codedKernos) {
        const auto ofSource = bySourceId(kerno);
        for (int sourceId : data.sourceIds) {
            for (const Quote* quote : ofSource.value(sourceId)) {
                QJsonObject object = json(data, *quote);
                object.insert(QStringLiteral("kernoId"), quote->kernoId);
                object.insert(QStringLiteral("sourceId"), quote->sourceId);
                ofQuestion[quote->questionId].append(object);
            }
        }
    }
    for (const QJsonValue& value : data.questions) {
        const int id = value[QStringLiteral("questionId")].toInt();
        if (ofQuestion.contains(id))
            sink({{QStringLiteral("questionId"), id},
                  {QStringLiteral("question"), value[QStringLiteral("question")]},
                  {QStringLiteral("quotes"), ofQuestion.take(id)}});
    }
}

void reporttexts::codeSummary(const ReportData& data, const Sink& sink) {
    for (int i = 0; i < data.codedKernos.size(); ++i) {
        const ReportData::KernoQuotes& kerno = data.codedKernos.at(i);
        if (!isRecord(kerno.kernoId, "getTextSortedByCodeSummaryJSON(): NULL Kerno at index", i))
            continue;
        const auto ofSource = bySourceId(kerno);
        double length = 0;
        int count = 0;
        QJsonArray interviews;
        for (int s = 0; s < data.sourceIds.size(); ++s) {
            const int sourceId = data.sourceIds.at(s);
            if (!isRecord(sourceId, "getTextSortedByCodeSummaryJSON(): NULL Source at index", s))
                continue;
            const QVector<const Quote*> quotes = ofSource.value(sourceId);
            const int coded = sum(quotes);
            interviews.append(
                QJsonObject{{QStringLiteral("sourceId"), sourceId},
                            {QStringLiteral("percentage"), percentage(coded, data.lengths.value(sourceId))},
                            {QStringLiteral("occurences"), quotes.size()}});
            length += coded;
            count += quotes.size();
        }
        sink({{QStringLiteral("kernoId"), kerno.kernoId},
              {QStringLiteral("global_percentage"), percentage(length, data.totalLength)},
              {QStringLiteral("global_occurences"), count},
              {QStringLiteral("interviews"), interviews}});
    }
}

void reporttexts::memosBySource(const ReportData& data, const Sink& sink) {
    for (int i = 0; i < data.memos.size(); ++i) {
        const ReportData::SourceMemos& source = data.memos.at(i);
        if (isRecord(source.sourceId, "getMemosSortedBySourceJSON(): NULL Source at index", i))
            sink({{QStringLiteral("sourceId"), source.sourceId}, {QStringLiteral("memos"), source.memos}});
    }
}
