#pragma once

#include "project/Progress.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QVariantList>
#include <QVector>
#include <optional>

class KRNFile;

/// What a report tells of a project, as values. Times are seconds since the epoch; a length counts the
/// characters of the stored texts, markup included.
struct ReportData {
    /// A coded passage with its words.
    struct Quote {
        int highlightId = 0;
        int kernoId = 0;
        int sourceId = 0;
        int questionId = 0;
        int start = 0;
        int length = 0;
        QString author;        ///< who coded it
        qint64 timestamp = 0;  ///< and when
        QJsonObject passage;   ///< the answer's record, with the passage as its text
    };
    struct KernoQuotes {
        int kernoId = 0;
        QVector<Quote> quotes;  ///< in the order of the query
    };
    struct SourceMemos {
        int sourceId = 0;
        QJsonArray memos;  ///< the records, each with the passage that it stands at and `memo`, its content
    };

    QVariantList criteria;
    QJsonArray kernos;  ///< all of them, with `textColor`
    QJsonArray sources;
    QJsonArray questions;
    QJsonArray metadataKeys;
    QJsonArray coverageByAuthor;
    QJsonArray coverageByKerno;
    QJsonArray coverageByKernoAndAuthor;
    QJsonArray kernosWithOverlaps;   ///< ids
    QJsonArray kernosWithHierarchy;  ///< ids
    QVector<int> sourceIds;
    int totalLength = 0;
    QHash<int, int> lengths;           ///< by source
    QVector<KernoQuotes> codedKernos;  ///< those with highlights under the criteria
    QVector<SourceMemos> memos;
    QString author;
    QString fileName;
};

namespace report {

/// Reads the open project; for all highlights when `criteria` is empty. Nothing when it isn't open, the link
/// is lost on the way, or `progress` ends it. Main thread; blocks.
std::optional<ReportData> read(const KRNFile& file, const QVariantList& criteria, const Progress& progress);

/// A record's map as JSON, with times as seconds.
QJsonObject json(const QVariantMap& record);

}  // namespace report
