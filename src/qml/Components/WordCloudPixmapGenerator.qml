import QtQuick 2.15

// The progress before a word cloud, which has no pictures to be drawn.
Item {
    id: root

    property int step: 0
    readonly property int totalSteps: 9
    property bool cancelled: false

    signal progress(int percent, string status)
    signal completed(bool cancelled)

    function start() {
        cancelled = false
        step = 1
    }

    function cancel() {
        if (cancelled)
            return
        cancelled = true
        step = 0
        CentralManager.animationsOn = true
        completed(true)
    }

    onStepChanged: {
        CentralManager.animationsOn = step < 1 || step > totalSteps
        if (step > totalSteps) {
            step = 0
            completed(cancelled)
        } else if (step > 0) {
            progress(Math.round(step / totalSteps * 100), qsTr("Generating WordCloud..."))
        }
    }

    Timer {
        interval: 60
        repeat: true
        running: root.step > 0 && !root.cancelled
        onTriggered: ++root.step
    }
}
