#pragma once

#include "project/Progress.h"

#include <QVariantList>

class KRNFile;

namespace report {

/// How the writing of a folder ended. What was written stays there.
enum class Written { Done, Failed, Ended };

/// Writes the report's page and its data into a folder; `criteria` choose the highlights, an empty list all.
/// The pictures of hierarchies and overlaps are shown where the flags say so: they are the caller's to make.
/// Main thread; blocks, but for what `progress` does.
Written writeFolder(const KRNFile& file, const QString& folder, const QVariantList& criteria,
                    bool generateHierarchyViews, bool generateOverlapViews, const Progress& progress = {});

}  // namespace report

namespace wordcloud {

/// The same for the word cloud.
report::Written writeFolder(const KRNFile& file, const QString& folder, const Progress& progress = {});

}  // namespace wordcloud
