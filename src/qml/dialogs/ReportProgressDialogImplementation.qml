import QtQuick 2.15
import "../Components"

// Makes a report: its pictures, then its data, and shows it.
PagesProgressDialog {
    id: root

    // Beside the layout: it would make room for it.
    generator: ReportPixmapGenerator {
        parent: root
        z: -1
        outputFolder: CentralManager.reportOutputFolder + "/data"
    }
    write: function() {
        var folder = CentralManager.reportOutputFolder
        var written = appHelper.writeReportData(folder, CentralManager.reportCriteria || [],
                                                CentralManager.generateHierarchyViews,
                                                CentralManager.generateOverlapViews)
        if (!written && !root.__cancelled) {
            CentralManager.showAlert(qsTr("Report Error"),
                    qsTr("Failed to write report. Please make sure you have write permissions. "
                         + "Alternatively try a different folder.\n\nOutput path: %1").arg(folder))
        }
    }

    onFinished: CentralManager.reportCriteria = null
}
