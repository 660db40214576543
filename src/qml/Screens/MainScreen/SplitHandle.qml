import QtQuick 2.15
import "../../Components"

// The handle of the split between the columns. It is a picture that hangs left of the split line, and it alone
// takes the mouse: the mouse area that the split view lays over its whole line is drawn in to the picture.
Item {
    id: root

    property bool resizing: false
    readonly property real __margin: (height - _image.height) / 2

    width: 0

    Image {
        id: _image
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        width: Units.dp(30)
        height: Units.dp(80)
        visible: !CentralManager.showSearchPanel
        source: "qrc:///qml/images/split-handle.png"
        mipmap: true
        opacity: root.resizing ? 1.0 : 0.85
    }

    // The loader of this delegate holds the split view's mouse area beside it.
    function __mouseAreaOf(loader) {
        for (var i = 0; i < loader.children.length; ++i) {
            if (loader.children[i].drag !== undefined)
                return loader.children[i]
        }
        return null
    }

    Component.onCompleted: {
        var area = parent ? __mouseAreaOf(parent) : null
        if (!area)
            return
        area.anchors.leftMargin = Qt.binding(function() { return -_image.width })
        area.anchors.rightMargin = 0
        area.anchors.topMargin = Qt.binding(function() { return root.__margin })
        area.anchors.bottomMargin = Qt.binding(function() { return root.__margin })
        area.visible = Qt.binding(function() { return _image.visible })
    }
}
