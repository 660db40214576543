pragma Singleton
import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// Named colours, sizes and control styles of both themes.
QtObject {
    id: root

    readonly property bool dark: CentralManager.darkTheme

    readonly property color main_color: dark ? "#3d3a35" : "#dadada"
    readonly property color main_color_opaque: "#35353d"
    readonly property color canvas_background_color: dark ? "#0f1140" : "#dcdcff"
    readonly property color source_text_color: dark ? "#fefff5" : "#000000"
    readonly property color source_background_color: dark ? "black" : "white"
    readonly property color bar_background_color: dark ? "black" : "#dadada"
    readonly property color selected_tab: dark ? main_color : "#ffffff"
    readonly property color selected_tab_alternative: dark ? "black" : "#ffffff"
    readonly property color not_selected_tab: dark ? "#51515e" : "#e1e1ff"
    readonly property color not_selected_tab_alternative: dark ? "#1d1b19" : "#e1e1ff"
    readonly property color highlights_bar_color: dark ? "#070820" : "#d1d1d1ff"
    readonly property color memo_background_color: dark ? "#0a0c31" : "#e6e6ff"
    readonly property color default_text_color: dark ? "#facf6e" : "#130057"
    readonly property color dialog_text_color: default_text_color
    readonly property color dialog_text_color_alternative: dark ? "#fefff5" : "#151515"
    readonly property color dialog_background_color: dark ? "#181a5f" : "#c8c8f0"
    readonly property color dialog_highlight_color: dark ? "#888888" : "#dddddd"
    readonly property color listview_highlight_color: dark ? "#646464" : "#f0f0f0"
    readonly property color textfield_background_color: dark ? "#535361" : "#f0f0f0"
    readonly property color list_background_color: dark ? textfield_background_color : "white"
    readonly property color row_selected_color: Qt.rgba(0.99, 0.56, 0, 0.28)
    readonly property color selection_color: "#80B3DB"
    readonly property color selected_text_color: "black"
    readonly property color error_text_color: dark ? "#ff6b60" : "#b00020"
    readonly property color border_color: "darkgrey"
    readonly property color focus_color: dark ? orrange_button_color : "#b35900"
    readonly property color link_color: "#fc8f00"
    readonly property color orrange_button_color: "#fc8f00"
    readonly property color orrange_button_text_color: "#1d1b19"
    readonly property color orange_text_color: dark ? orrange_button_color : "#7a3d00"
    readonly property color chat_own_background_color: "#aceefe"
    readonly property color chat_other_background_color: "#d1d1d1"
    readonly property color chat_own_text_color: dark ? chat_own_background_color : "#377f91"
    readonly property color chat_other_text_color: dark ? chat_other_background_color : "#636363"

    readonly property string source_text_font_family: "Lato"
    readonly property real default_margin: Units.dp(10)
    readonly property real default_dialog_margin: Units.dp(20)
    readonly property real dialog_text_font_size_small: Units.dp(13)
    readonly property real dialog_text_font_size: Units.dp(16)
    readonly property real dialog_header_font_size: Units.dp(28)
    readonly property real label_font_size: Units.dp(13)
    readonly property real scroll_bar_size: Units.dp(appHelper.isTouchEnabledDevice ? 36 : 13)

    readonly property Component button_style_dark_orange: Component {
        ButtonStyle {
            id: _orange
            padding { left: Units.dp(16); right: Units.dp(16); top: Units.dp(7); bottom: Units.dp(7) }
            background: Rectangle {
                radius: Units.dp(4)
                color: control.pressed ? Qt.darker(root.orrange_button_color, 1.25)
                     : control.hovered ? Qt.lighter(root.orrange_button_color, 1.12) : root.orrange_button_color
                opacity: control.enabled ? 1.0 : 0.35
                border { width: control.activeFocus ? 2 : 0; color: root.dialog_text_color_alternative }
            }
            label: PlainText {
                text: control.text
                color: root.orrange_button_text_color
                opacity: control.enabled ? 1.0 : 0.6
                font { pixelSize: root.dialog_text_font_size; bold: true }
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
            }
        }
    }

    readonly property Component button_style_light: Component {
        ButtonStyle {
            padding { left: Units.dp(16); right: Units.dp(16); top: Units.dp(7); bottom: Units.dp(7) }
            background: Rectangle {
                radius: Units.dp(4)
                color: control.pressed ? root.dialog_highlight_color
                     : control.hovered ? Qt.rgba(0.53, 0.53, 0.53, 0.35) : "transparent"
                opacity: control.enabled ? 1.0 : 0.5
                border {
                    width: control.activeFocus ? 2 : 1
                    color: control.activeFocus ? root.orrange_button_color : root.border_color
                }
            }
            label: PlainText {
                text: control.text
                color: root.dialog_text_color_alternative
                opacity: control.enabled ? 1.0 : 0.45
                font.pixelSize: root.dialog_text_font_size
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
            }
        }
    }

    readonly property Component button_style_white_list_view: Component {
        ButtonStyle {
            background: Rectangle {
                radius: Units.dp(3)
                color: control.pressed ? "#dde7f1" : "white"
                opacity: control.enabled ? 1.0 : 0.5
                border { width: 1; color: "#3c76b0" }
            }
            label: PlainText {
                text: control.text
                color: "#3c76b0"
                font.pixelSize: root.dialog_text_font_size_small
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
    }

    readonly property Component switch_style: Component {
        SwitchStyle {
            groove: Rectangle {
                implicitWidth: Units.dp(44)
                implicitHeight: Units.dp(22)
                radius: height / 2
                color: control.checked ? root.orrange_button_color : root.textfield_background_color
                border { width: 1; color: control.activeFocus ? root.dialog_text_color : root.border_color }
            }
            handle: Rectangle {
                implicitWidth: Units.dp(22)
                implicitHeight: Units.dp(22)
                radius: height / 2
                color: "white"
                border { width: 1; color: root.border_color }
            }
        }
    }

    readonly property Component progress_bar_style: Component {
        ProgressBarStyle {
            background: Rectangle {
                implicitWidth: Units.dp(200)
                implicitHeight: Units.dp(8)
                radius: height / 2
                color: "white"
                opacity: 0.8
            }
            progress: Rectangle {
                radius: height / 2
                color: root.orrange_button_color
            }
        }
    }

    readonly property Component check_box_style: Component {
        CheckBoxStyle {
            spacing: Units.dp(8)
            indicator: Image {
                width: Units.dp(18)
                height: Units.dp(18)
                mipmap: true
                opacity: control.enabled ? 1.0 : 0.5
                source: "qrc:///qml/images/%1.png".arg(control.checked ? "tickbox-ticked" : "tickbox-empty")
            }
            label: PlainText {
                text: control.text
                color: root.dialog_text_color_alternative
                font.pixelSize: root.dialog_text_font_size
                verticalAlignment: Text.AlignVCenter
            }
        }
    }

    readonly property Component scroll_view_style: Component {
        ScrollViewStyle {
            transientScrollBars: false
            handleOverlap: 0
            minimumHandleLength: Units.dp(50)
            frame: Item {}
            corner: Item {}
            incrementControl: Item {}
            decrementControl: Item {}
            scrollBarBackground: ScrollTrough { size: root.scroll_bar_size }
            handle: ScrollHandle {
                size: root.scroll_bar_size
                baseColor: root.orrange_button_color
                pressed: styleData.pressed
                horizontal: styleData.horizontal
                view: control.flickableItem
            }
        }
    }

    readonly property Component scroll_view_plain_style: Component {
        ScrollViewStyle {
            transientScrollBars: false
            frame: Item {}
            corner: Item {}
            incrementControl: Item {}
            decrementControl: Item {}
            scrollBarBackground: Item {}
            handle: Item {}
        }
    }

    readonly property Component stack_view_delegate: Component {
        StackViewDelegate {
            function transitionFinished(properties) {
                properties.exitItem.opacity = 1
            }
            pushTransition: StackViewTransition {
                PropertyAnimation { target: enterItem; property: "opacity"; from: 0; to: 1 }
                PropertyAnimation { target: exitItem; property: "opacity"; from: 1; to: 0 }
            }
        }
    }
}
