import QtQuick 2.15
import Kernova 1.4
import "."

// The text of an answer in the look of the source panel.
KernovaTextEditBase {
    id: root

    property real preferredHeight: 0

    lineHeight: CentralManager.lineHeight
    wrapMode: TextEdit.Wrap
    selectByMouse: true
    persistentSelection: true
    Accessible.role: Accessible.EditableText
    Accessible.readOnly: readOnly
    color: ApplicationStyle.source_text_color
    selectionColor: ApplicationStyle.selection_color
    selectedTextColor: ApplicationStyle.selected_text_color
    font {
        family: ApplicationStyle.source_text_font_family
        pointSize: CentralManager.sourceFontSize
    }

    onContentSizeChanged: {
        _heightTimer.restart()
        _layoutTimer.restart()
    }

    property Timer _heightTimer: Timer {
        interval: 0
        onTriggered: root.preferredHeight = root.contentHeight
    }

    // The models' own timer serves the first text of the program alone, so each text lays its stripes and memos out
    // again when its lines have moved.
    property Timer _layoutTimer: Timer {
        interval: 60
        onTriggered: {
            if (root.highlightsModel && root.highlightsModel.updatePositions)
                root.highlightsModel.updatePositions(true)
            if (root.memosModel && root.memosModel.updatePositions)
                root.memosModel.updatePositions(true)
        }
    }
}
