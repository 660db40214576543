#pragma once

#include <QJsonArray>
#include <QVariantList>

/// What the client makes of the service's figures: rows as maps, for screens and reports.
namespace statistics {

/// Each object as a map of the named members, as they came.
QVariantList rows(const QJsonArray& answer, const QStringList& names);

/// The values of a metadata key with their shares. Sources without the key, if there are any, become a last
/// row titled `notDefined`; a key that no source has gives that row alone, for all `sourcesCount` sources.
QVariantList metadataOverview(const QJsonArray& answer, const QString& notDefined);
QVariantList metadataOverviewWithoutValues(int sourcesCount, const QString& notDefined);

/// The same over the sources that hold codings of some kernos.
QVariantList metadataOverviewForKernos(const QJsonArray& answer);

/// Shares in percent of `totalLength`, the length of all sources, and of the coded length.
QVariantList coverageByAuthor(const QJsonArray& answer, int totalLength);
QVariantList coverageByKerno(const QJsonArray& answer, int totalLength);
/// One entry for each run of a kerno, with the list `authors`.
QVariantList coverageByKernoAndAuthor(const QJsonArray& answer, int totalLength);

/// The metadata of one source; the link's id is named `metadataId`.
QVariantList metadataForReport(const QJsonArray& answer);

}  // namespace statistics
