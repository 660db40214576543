import QtQuick 2.15
import Qt.labs.settings 1.0
import "../../Utils.js" as Utils

// The projects that were opened last on this computer, newest first. An entry has `name`, `path` and `backup`, the
// ISO date of its last backup or "".
Item {
    id: root

    property string lastAuthor: ""
    property string recentFiles: ""
    readonly property alias recentFilesModel: _model
    readonly property int __maxRecentFiles: 10
    readonly property int __backupInterval: 24 * 60 * 60 * 1000

    visible: false

    Settings {
        property alias lastAuthor: root.lastAuthor
        property alias recentFiles: root.recentFiles
    }

    ListModel {
        id: _model
    }

    Component.onCompleted: __load()

    function entries() {
        if (recentFiles === "")
            return []
        try {
            return Utils.filter(JSON.parse(recentFiles), function(entry) { return entry && entry.path })
        } catch (error) {
            return []
        }
    }

    function entry(path) {
        return Utils.findInArray(entries(), function(candidate) { return candidate.path === path })
    }

    // Puts the project at the head of the list.
    function update(path, backup) {
        var list = entries().filter(function(candidate) { return candidate.path !== path })
        if (list.length >= __maxRecentFiles - 1)
            list.splice(__maxRecentFiles - 1, 1)
        list.unshift({ name: Utils.getFileName(path, false), path: path, backup: backup })
        __store(list)
    }

    function remove(path) {
        __store(entries().filter(function(candidate) { return candidate.path !== path }))
    }

    // Backs the open project up if the last backup is over a day old, and gives the date of its last backup. A
    // failure is told to the user and leaves the date as it was.
    function makeBackupIfNeeded(path) {
        var known = entry(path)
        var last = known && known.backup ? known.backup : ""
        if (last !== "" && new Date() - new Date(last) <= __backupInterval)
            return last
        return krnFile.makeBackup(Utils.resolveUrlFromPath(path)) ? new Date().toISOString() : undefined
    }

    function __store(list) {
        recentFiles = JSON.stringify(list)
        __load()
    }

    function __load() {
        _model.clear()
        if (appHelper.userInvokedFile !== "")
            _model.append({ name: qsTr("User Invoked File"), path: appHelper.userInvokedFile, invoked: true })
        entries().forEach(function(entry) {
            _model.append({ name: entry.name, path: entry.path, invoked: false })
        })
    }

    Connections {
        target: appHelper
        function onUserInvokedFileChanged() { root.__load() }
    }
}
