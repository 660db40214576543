import QtQuick 2.15

// The account's projects in the cloud and those that are shared with it. Calls of the cloud wait in an event loop of
// their own, so each begins by a timer, and `busy` keeps others away until it has ended.
Item {
    id: root

    property var own: []
    property var shared: []
    property string error
    property bool busy: false
    readonly property bool slow: busy && _projectLoadTimer.ranOut
    property var __next: null

    // Both lists are new.
    signal listed()

    visible: false

    // Does `work` when what is to be seen meanwhile has been drawn.
    function perform(work) {
        if (busy)
            return
        busy = true
        error = ""
        __next = work
        _startTimer.start()
    }

    function update() { perform(updateProjectsModel) }

    function updateProjectsModel() {
        _projectLoadTimer.ranOut = false
        _projectLoadTimer.start()
        var lists = [appHelper.projects(), appHelper.projectsShared()]
        _projectLoadTimer.stop()
        for (var i = 0; i < lists.length; ++i) {
            if (!lists[i].status) {
                error = lists[i].message || qsTr("The projects could not be listed.")
                return
            }
        }
        // A list that gets its rows chooses the first of them, and the last to do so is a person's own.
        shared = __entries(lists[1].value, "shares")
        own = __entries(lists[0].value, "projects")
        listed()
    }

    // What can't be named to the service is none of the list.
    function __entries(value, key) {
        var answer = JSON.parse(value)
        var list = appHelper.isTestMode() ? answer : answer[key]
        return (Array.isArray(list) ? list : []).filter(function(entry) { return entry && entry.project_uuid })
    }

    Timer {
        id: _startTimer
        interval: 50
        onTriggered: {
            var work = root.__next
            root.__next = null
            work()
            root.busy = false
        }
    }

    Timer {
        id: _projectLoadTimer
        property bool ranOut: false
        interval: 2000
        onTriggered: ranOut = true
    }
}
