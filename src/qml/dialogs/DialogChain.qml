import QtQuick 2.15

// Holds at most one dialog: the first entry that is wanted. An earlier entry hides a later one until it closes.
Loader {
    id: root

    default property list<DialogEntry> entries
    readonly property DialogEntry current: {
        for (var i = 0; i < entries.length; ++i) {
            if (entries[i].wanted)
                return entries[i]
        }
        return null
    }
    property DialogEntry __shown: null

    onCurrentChanged: {
        sourceComponent = null
        __shown = current
        if (current)
            sourceComponent = _dialog
    }

    Component {
        id: _dialog

        DialogBase {
            property DialogEntry entry: root.__shown

            implementation: entry.implementation
            onClosed: entry.closed()
        }
    }
}
