import QtQuick 2.15

QtObject {
    property string password: ""

    function tryProjectPassword(project, tried) { return tried === password }
}
