#include "app/AppHelper.h"
#include "app/ReportViewer.h"
#include "export/ReportFolder.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QFile>

namespace {

void show(const QString& folder, const QString& page, ReportViewer::Mode mode) {
    const QString file = folder + QLatin1Char('/') + page;
    if (!QFile::exists(file))
        return;
    ReportViewer viewer(file, folder, mode);
    viewer.exec();
}

}  // namespace

bool AppHelper::writeReportData(const QString& reportFolder, const QVariantList& criteria,
                                bool generateHierarchyViews, bool generateOverlapViews) {
    m_pagesCancelled = false;
    const report::Written written =
        report::writeFolder(*m_krnFile, reportFolder, criteria, generateHierarchyViews, generateOverlapViews,
                            [this](qint64 done, qint64 of) { return goOnWithPages(done, of); });
    if (written != report::Written::Ended)
        show(reportFolder, QStringLiteral("report.html"), ReportViewer::Report);
    return written == report::Written::Done;
}

bool AppHelper::writeWordCloudData(const QString& reportFolder) {
    m_pagesCancelled = false;
    const report::Written written = wordcloud::writeFolder(
        *m_krnFile, reportFolder, [this](qint64 done, qint64 of) { return goOnWithPages(done, of); });
    if (written != report::Written::Ended)
        show(reportFolder, QStringLiteral("wordcloud.html"), ReportViewer::WordCloud);
    return written == report::Written::Done;
}

void AppHelper::cancelPages() {
    m_pagesCancelled = true;
}

// The dialog with the progress and its Cancel stays alive meanwhile.
bool AppHelper::goOnWithPages(qint64 sources, qint64 of) {
    emit pagesProgress(static_cast<int>(sources), static_cast<int>(of));
    QCoreApplication::processEvents();
    return !m_pagesCancelled && m_krnFile->isOpened();
}
