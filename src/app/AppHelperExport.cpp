#include "app/AppHelper.h"
#include "app/ProgressWindow.h"
#include "export/CsvExport.h"
#include "project/KRNFile.h"

void AppHelper::initExports() {
    m_krnFile->setTableWriter([](KRNFile& file, const QString& folder) {
        ProgressWindow window(tr("Exporting the project..."));
        const csv::Result result = csv::exportProject(file, folder, window.progress());
        return KRNFile::TablesWritten{result.written, result.sentence.isEmpty()};
    });
}
