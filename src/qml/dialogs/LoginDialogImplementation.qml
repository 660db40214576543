import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// Where the session's projects live.
DialogPanel {
    id: root

    heading: qsTr("Sign In")
    implicitWidth: Units.dp(460)

    LoginOfflineColumn {
        Layout.fillWidth: true
        onFinished: root.dialogBase.close()
    }
}
