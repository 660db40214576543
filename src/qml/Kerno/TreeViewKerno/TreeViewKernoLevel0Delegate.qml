import QtQuick 2.15
import "../../Components"

// A top-level kerno with all that is below it.
Column {
    id: root

    property var dataSource: null
    property Item tree: null

    visible: !!dataSource && (dataSource.visible || krnFile.anyVisibleChildren(_label.kernoId))
    spacing: Units.dp(2)

    TreeViewKerno {
        id: _label
        width: root.width
        dataSource: root.dataSource
        tree: root.tree
    }

    Loader {
        width: root.width
        active: !!root.dataSource && root.dataSource.hasChildren
        visible: active
        sourceComponent: TreeBranch {
            width: root.width
            kernoId: _label.kernoId
            delegate: TreeViewKernoLevel1Delegate {
                width: parent ? parent.width : 0
                dataSource: model
                tree: root.tree
            }
        }
    }
}
