import QtQuick 2.15
import "../../Components"

// A child of a top-level kerno with its own children.
Column {
    id: root

    property var dataSource: null
    property Item tree: null
    readonly property real middle: _label.height / 2

    visible: !!dataSource && (dataSource.visible || krnFile.anyVisibleChildren(_label.kernoId))
    spacing: Units.dp(2)

    TreeViewKerno {
        id: _label
        width: root.width
        dataSource: root.dataSource
        tree: root.tree

        TreeLine { middle: root.middle }
    }

    Loader {
        width: root.width
        active: !!root.dataSource && root.dataSource.hasChildren
        visible: active
        sourceComponent: TreeBranch {
            width: root.width
            kernoId: _label.kernoId
            delegate: TreeViewKerno {
                readonly property real middle: height / 2

                width: parent ? parent.width : 0
                visible: !!dataSource && dataSource.visible
                dataSource: model
                tree: root.tree

                TreeLine { middle: parent.middle }
            }
        }
    }
}
