#include "app/AppHelper.h"
#include "app/ProgressWindow.h"
#include "export/CsvExport.h"
#include "export/DocxSourceExporter.h"
#include "project/KRNFile.h"

#include <QDesktopServices>

void AppHelper::initExports() {
    m_krnFile->setTableWriter([this](KRNFile& file, const QString& folder) {
        ProgressWindow window(tr("Exporting the project..."));
        const csv::Result result = csv::exportProject(file, folder, window.progress());
        m_exportError = result.sentence;
        return KRNFile::TablesWritten{result.written, result.sentence.isEmpty()};
    });
}

bool AppHelper::exportDocx(const QUrl& docxURL) {
    const QString suffix = QStringLiteral(".docx");
    QString path = docxURL.toLocalFile();
    if (!path.endsWith(suffix, Qt::CaseInsensitive))
        path += suffix;
    ProgressWindow window(tr("Exporting the sources..."));
    m_exportError = DocxSourceExporter(m_krnFile).exportAll(path, window.progress()).sentence;
    return m_exportError.isEmpty();
}

bool AppHelper::exportDocxWithSeparateSources(const QUrl& outFolder, bool open, bool useGUID,
                                              bool includeTitle) {
    ProgressWindow window(tr("Exporting the sources..."));
    const DocxSourceExporter::Result result = DocxSourceExporter(m_krnFile).exportSeparately(
        outFolder.toLocalFile(), {useGUID, includeTitle}, window.progress());
    m_exportError = result.sentence;
    if (m_exportError.isEmpty() && !result.cancelled && open)
        QDesktopServices::openUrl(outFolder);
    return m_exportError.isEmpty();
}
