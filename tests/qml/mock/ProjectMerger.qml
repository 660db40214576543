import QtQuick 2.15

QtObject {
    property string password: ""
    // Why no project can be read; empty when it can.
    property string error: ""

    function tryProjectPassword(project, tried) { return error === "" && tried === password }
    function lastError() { return error }
}
