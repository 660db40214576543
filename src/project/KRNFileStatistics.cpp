#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "project/Statistics.h"

// The answer to a statistics read, after the client's share of the arithmetic; empty on a closed project.
QVariantList KRNFile::readStatistics(const QString& text, const QString& name,
                                     const std::function<QVariantList(const QJsonArray&)>& arithmetic) const {
    return isOpened() ? arithmetic(m_dataHelper->queryValue(text, name).toArray()) : QVariantList();
}

QVariantList KRNFile::metadataOverviewForKeyId(const QVariant& keyId) const {
    const auto arithmetic = [this](const QJsonArray& answer) {
        if (answer.isEmpty())
            return statistics::metadataOverviewWithoutValues(sourceIds().size(), tr("Not Defined"));
        return statistics::metadataOverview(answer, tr("Not Defined"));
    };
    return readStatistics(wire::sourceMetadataOverviewForKeyId(keyId.toInt()),
                          wire::name::sourceMetadataOverviewForKeyId, arithmetic);
}

QVariantList KRNFile::metadataOverviewForKeyAndKernoId(const QVariant& keyId,
                                                       const QList<int>& kernoIds) const {
    return readStatistics(wire::sourceMetadataOverviewForKeyAndKernosId(keyId.toInt(), kernoIds),
                          wire::name::sourceMetadataOverviewForKeyAndKernosId,
                          statistics::metadataOverviewForKernos);
}

QVariantList KRNFile::highlightsOverviewPerSourceForKerno(const QVariant& kernoId) const {
    if (kernoId.toInt() == -1)
        return {};
    const auto arithmetic = [](const QJsonArray& answer) {
        return statistics::rows(answer, {QStringLiteral("kernoHighlights"),
                                         QStringLiteral("sourceHighlights"), QStringLiteral("sourceTitle")});
    };
    return readStatistics(wire::highlightsOverviewPerSourceForKerno(kernoId.toInt()),
                          wire::name::highlightsOverviewPerSourceForKerno, arithmetic);
}

QVariantList KRNFile::highlightsCoverageByAuthor(int totalLength) const {
    const auto arithmetic = [=](const QJsonArray& a) { return statistics::coverageByAuthor(a, totalLength); };
    return readStatistics(wire::highlightsCoverageByAuthor(), wire::name::highlightsCoverageByAuthor,
                          arithmetic);
}

QVariantList KRNFile::highlightsCoverageByKerno(int totalLength) const {
    const auto arithmetic = [=](const QJsonArray& a) { return statistics::coverageByKerno(a, totalLength); };
    return readStatistics(wire::highlightsCoverageByKerno(), wire::name::highlightsCoverageByKerno,
                          arithmetic);
}

QVariantList KRNFile::highlightsCoverageByKernoAndAuthor(int totalLength) const {
    const auto arithmetic = [=](const QJsonArray& answer) {
        return statistics::coverageByKernoAndAuthor(answer, totalLength);
    };
    return readStatistics(wire::highlightsCoverageByKernoAndAuthor(),
                          wire::name::highlightsCoverageByKernoAndAuthor, arithmetic);
}

QVariantList KRNFile::sourceMetadataListForReport(const QVariant& sourceId) const {
    return readStatistics(wire::sourceMetadataListForReport(sourceId.toInt()),
                          wire::name::sourceMetadataListForReport, statistics::metadataForReport);
}
