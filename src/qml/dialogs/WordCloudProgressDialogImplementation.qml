import QtQuick 2.15
import "../Components"

// Makes a word cloud, and shows it.
PagesProgressDialog {
    id: root

    generator: WordCloudPixmapGenerator { parent: root }
    write: function() {
        var folder = CentralManager.wordCloudOutputFolder
        if (!appHelper.writeWordCloudData(folder) && !root.__cancelled) {
            CentralManager.showAlert(qsTr("WordCloud Error"),
                    qsTr("Failed to write word cloud. Please make sure you have write permissions. "
                         + "Alternatively try a different folder.\n\nOutput path: %1").arg(folder))
        }
    }
}
