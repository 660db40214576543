#include "export/ReportData.h"

#include "export/MarkedText.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "records/ContrastColor.h"

#include <QColor>
#include <QDateTime>
#include <QFileInfo>

namespace {

using Quote = ReportData::Quote;

const QString sourceIdName = QStringLiteral("sourceId");
const QString questionIdName = QStringLiteral("questionId");
const QString timestampName = QStringLiteral("timestamp");
const QString answerName = QStringLiteral("answer");

QJsonValue seconds(const QDateTime& time) {
    return time.isValid() ? QJsonValue(time.toSecsSinceEpoch()) : QJsonValue();
}

QJsonArray jsonList(const QVariantList& maps) {
    QJsonArray array;
    for (const QVariant& map : maps)
        array.append(report::json(map.toMap()));
    return array;
}

QJsonArray kernosWithTextColor(const KRNFile& file) {
    QJsonArray kernos;
    for (const Kerno& kerno : file.allKernos()) {
        QJsonObject object = report::json(kerno.toVariantMap());
        object.insert(QStringLiteral("textColor"), contrastFontColor(kerno.color()).name());
        kernos.append(object);
    }
    return kernos;
}

QJsonArray keysWithOverview(const KRNFile& file) {
    QJsonArray keys;
    for (const QVariant& map : file.metadataKeys(true, false)) {
        QJsonObject key = report::json(map.toMap());
        const QVariantList overview =
            file.metadataOverviewForKeyId(map.toMap().value(QStringLiteral("keyId")));
        key.insert(QStringLiteral("metadataOverview"), jsonList(overview));
        keys.append(key);
    }
    return keys;
}

Quote quoteOf(const QVariantMap& highlight) {
    const auto number = [&](const QString& name) { return highlight.value(name).toInt(); };
    Quote quote;
    quote.highlightId = number(QStringLiteral("highlightId"));
    quote.kernoId = number(QStringLiteral("kernoId"));
    quote.sourceId = number(sourceIdName);
    quote.questionId = number(questionIdName);
    quote.start = number(QStringLiteral("start"));
    quote.length = number(QStringLiteral("length"));
    quote.author = highlight.value(QStringLiteral("author")).toString();
    quote.timestamp = highlight.value(timestampName).toDateTime().toSecsSinceEpoch();
    return quote;
}

QVector<ReportData::KernoQuotes> codedKernos(const KRNFile& file, const QVariantList& criteria) {
    QVector<ReportData::KernoQuotes> kernos;
    for (const QVariant& item : file.kernosWithHighlightsAndCriteria(criteria)) {
        const QVariantMap map = item.toMap();
        ReportData::KernoQuotes kerno;
        kerno.kernoId = map.value(QStringLiteral("kerno")).toMap().value(QStringLiteral("kernoId")).toInt();
        for (const QVariant& highlight : map.value(QStringLiteral("highlights")).toList())
            kerno.quotes.append(quoteOf(highlight.toMap()));
        kernos.append(kerno);
    }
    return kernos;
}

/// One source's answers, of which passages are cut.
class Answers {
public:
    explicit Answers(const QVariantList& maps) {
        for (const QVariant& map : maps) {
            const QVariantMap answer = map.toMap();
            m_length += answer.value(answerName).toString().size();
            m_answers.insert(answer.value(questionIdName).toInt(), {answer, {}, false});
        }
    }

    /// Of the stored texts.
    int length() const { return m_length; }

    /// The answer's record with that part as its text; no text where there is none.
    QJsonObject passage(int sourceId, int questionId, int start, int length) {
        const auto found = m_answers.find(questionId);
        const bool there = found != m_answers.end();
        const QVariantMap answer = there ? found->record : QVariantMap();
        QString html;
        if (there && start >= 0) {
            if (!found->isRead)
                found->text = MarkedText::fromStored(answer.value(answerName).toString());
            found->isRead = true;
            html = found->text.html(start, length);
        }
        const QDateTime time = QDateTime::fromString(answer.value(timestampName).toString(), Qt::ISODate);
        return {{QStringLiteral("answerId"), answer.value(QStringLiteral("answerId"), -1).toInt()},
                {questionIdName, questionId},
                {sourceIdName, sourceId},
                {QStringLiteral("author"), answer.value(QStringLiteral("author")).toString()},
                {answerName, html},
                {timestampName, seconds(time)},
                {QStringLiteral("isHtml"), there && found->text.isHtml()}};
    }

private:
    struct Answer {
        QVariantMap record;
        MarkedText text;
        bool isRead;
    };
    QHash<int, Answer> m_answers;  ///< by question
    int m_length = 0;
};

QJsonArray memosOf(const KRNFile& file, int sourceId, Answers& answers) {
    QJsonArray memos;
    for (const QVariant& map : file.memos(sourceId)) {
        const QJsonObject record = report::json(map.toMap());
        const auto number = [&](const QString& name) { return record.value(name).toInt(); };
        // What both have is the memo's: a memo's author is who wrote the memo.
        QJsonObject memo = answers.passage(sourceId, number(questionIdName), number(QStringLiteral("start")),
                                           number(QStringLiteral("length")));
        for (auto it = record.begin(); it != record.end(); ++it)
            memo.insert(it.key(), it.value());
        memo.insert(QStringLiteral("memo"), record.value(QStringLiteral("content")));
        memos.append(memo);
    }
    return memos;
}

/// Goes over the sources once: lengths, the words of all quotes, and memos.
bool readSources(const KRNFile& file, ReportData& data, const Progress& progress) {
    QHash<int, QVector<Quote*>> quotes;
    for (ReportData::KernoQuotes& kerno : data.codedKernos) {
        for (Quote& quote : kerno.quotes)
            quotes[quote.sourceId].append(&quote);
    }
    const QVariantList sources = file.sources();
    for (const QVariant& map : sources) {
        QJsonObject source = report::json(map.toMap());
        const int id = source.value(sourceIdName).toInt();
        Answers answers(file.answers(id));
        for (Quote* quote : quotes.value(id))
            quote->passage = answers.passage(id, quote->questionId, quote->start, quote->length);
        const QJsonArray memos = memosOf(file, id, answers);
        if (!memos.isEmpty())
            data.memos.append({id, memos});
        source.insert(QStringLiteral("metadata"), jsonList(file.sourceMetadataListForReport(id)));
        source.insert(QStringLiteral("highlightsCount"), file.highlightsCount(id));
        source.insert(QStringLiteral("length"), answers.length());
        data.sources.append(source);
        data.sourceIds.append(id);
        data.lengths.insert(id, answers.length());
        data.totalLength += answers.length();
        if (!goesOn(progress, data.sourceIds.size(), sources.size()))
            return false;
    }
    return true;
}

}  // namespace

QJsonObject report::json(const QVariantMap& record) {
    QJsonObject object;
    for (auto it = record.begin(); it != record.end(); ++it) {
        if (it->userType() == QMetaType::QDateTime)
            object.insert(it.key(), seconds(it->toDateTime()));
        else
            object.insert(it.key(), QJsonValue::fromVariant(*it));
    }
    return object;
}

std::optional<ReportData> report::read(const KRNFile& file, const QVariantList& criteria,
                                       const Progress& progress) {
    if (!file.isOpened())
        return {};
    ReportData data;
    data.criteria = criteria;
    data.kernos = kernosWithTextColor(file);
    data.questions = jsonList(file.questions());
    data.metadataKeys = keysWithOverview(file);
    data.kernosWithOverlaps = QJsonArray::fromVariantList(file.kernoIdsForKernosWithOverlaps());
    data.kernosWithHierarchy = QJsonArray::fromVariantList(file.kernoIdsForKernosWithChildren());
    data.codedKernos = codedKernos(file, criteria);
    if (!readSources(file, data, progress))
        return {};
    data.coverageByAuthor = jsonList(file.highlightsCoverageByAuthor(data.totalLength));
    data.coverageByKerno = jsonList(file.highlightsCoverageByKerno(data.totalLength));
    data.coverageByKernoAndAuthor = jsonList(file.highlightsCoverageByKernoAndAuthor(data.totalLength));
    data.author = file.getCurrentAuthor();
    data.fileName = QFileInfo(file.currentProject().value(QStringLiteral("name")).toString()).fileName();
    // Reads on a link that is gone give nothing, which would look like an empty project.
    if (!file.dataHelper()->isConnected())
        return {};
    return data;
}
