#include "export/ReportFolder.h"

#include "export/PageFolder.h"
#include "export/ReportData.h"
#include "export/ReportTexts.h"
#include "export/ScriptFile.h"

#include <QDebug>

namespace {

void writeStatements(ScriptFile& script, const ReportData& data, bool hierarchyViews, bool overlapViews) {
    const auto texts = [&](const char* name, auto write) {
        script.beginArray(name);
        write(data, [&](const QJsonObject& element) { script.element(element); });
        script.endArray();
    };
    script.number("generateHierarchyViews", hierarchyViews);
    script.number("generateOverlapViews", overlapViews);
    script.array("kernos", data.kernos);
    script.array("sources", data.sources);
    script.array("criteria", QJsonArray::fromVariantList(data.criteria));
    script.array("metadataKeys", data.metadataKeys);
    script.array("highlightsCoverageByAuthor", data.coverageByAuthor);
    script.array("highlightsCoverageByKerno", data.coverageByKerno);
    script.array("highlightsCoverageByKernoAndAuthor", data.coverageByKernoAndAuthor);
    script.array("questions", data.questions);
    script.array("kernosWithOverlaps", data.kernosWithOverlaps);
    script.array("kernosWithHierarchy", data.kernosWithHierarchy);
    texts("textSortedByCode", reporttexts::byCode);
    texts("textSortedBySource", reporttexts::bySource);
    texts("textSortedByQuestion", reporttexts::byQuestion);
    texts("textSortedByCodeSummary", reporttexts::codeSummary);
    texts("memosSortedBySource", reporttexts::memosBySource);
    script.timestamp("reportTimestamp");
    script.text("reportAuthor", data.author);
    script.text("reportFile", data.fileName);
}

}  // namespace

report::Written report::writeFolder(const KRNFile& file, const QString& folder, const QVariantList& criteria,
                                    bool generateHierarchyViews, bool generateOverlapViews,
                                    const Progress& progress) {
    qDebug() << "writeReportData" << criteria;
    if (!pagefolder::makeFolders(folder))
        return Written::Failed;
    ScriptFile script(pagefolder::dataFile(folder));
    if (!script.open()) {
        qWarning() << "Failed to open file for writing report data:" << pagefolder::dataFile(folder);
        return Written::Failed;
    }
    bool ended = false;
    const auto data = report::read(file, criteria, [&](qint64 done, qint64 of) {
        ended = !goesOn(progress, done, of);
        return !ended;
    });
    if (!data)
        return ended ? Written::Ended : Written::Failed;
    writeStatements(script, *data, generateHierarchyViews, generateOverlapViews);
    return script.close() && pagefolder::copyFiles(folder, pagefolder::reportFiles()) ? Written::Done
                                                                                      : Written::Failed;
}
