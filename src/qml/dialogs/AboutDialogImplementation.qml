import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../Components"

DialogPanel {
    id: root

    heading: qsTr("About Kernova %1").arg(appHelper.applicationVersion())
    implicitWidth: Units.dp(800)

    Keys.onEscapePressed: dialogBase.close()

    StyledTextArea {
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(360)
        readOnly: true
        Accessible.name: root.heading
        text: appHelper.aboutDialogContent()
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Go to Website"); onClicked: CentralManager.pageOpened(appHelper.goToWebsite()) }
        StyledButton { primary: true; focus: true; text: qsTr("OK"); onClicked: root.dialogBase.close() }
    }
}
