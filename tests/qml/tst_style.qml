import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"

// Whether the texts can be read on what they stand on, in both themes.
TestCase {
    name: "Style"

    readonly property real least: 4.5
    // Texts, and the grounds that they stand on.
    readonly property var pairs: [
        ["default_text_color", ["bar_background_color", "selected_tab", "canvas_background_color"]],
        ["dialog_text_color", ["dialog_background_color"]],
        ["dialog_text_color_alternative", ["dialog_background_color", "textfield_background_color",
                                           "list_background_color", "not_selected_tab", "listview_highlight_color"]],
        ["source_text_color", ["source_background_color", "selected_tab_alternative"]],
        ["selected_text_color", ["selection_color", "chat_own_background_color", "chat_other_background_color"]],
        ["error_text_color", ["dialog_background_color"]],
        ["orange_text_color", ["source_background_color", "bar_background_color"]],
        ["orrange_button_text_color", ["orrange_button_color"]],
        ["chat_own_text_color", ["source_background_color"]],
        ["chat_other_text_color", ["source_background_color"]]
    ]

    function cleanup() {
        CentralManager.darkTheme = true
    }

    function luminance(color) {
        var parts = [color.r, color.g, color.b].map(function(value) {
            return value <= 0.03928 ? value / 12.92 : Math.pow((value + 0.055) / 1.055, 2.4)
        })
        return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2]
    }

    function contrast(one, other) {
        var lights = [luminance(one), luminance(other)].sort()
        return (Math.max(lights[0], lights[1]) + 0.05) / (Math.min(lights[0], lights[1]) + 0.05)
    }

    function test_theFontsAreTheProgramsOwn() {
        ["Lato", "Open Sans", "Source Code Pro"].forEach(function(family) {
            verify(Qt.fontFamilies().indexOf(family) >= 0, family)
        })
    }

    function test_textsStandOut_data() {
        return [{ tag: "dark", dark: true }, { tag: "light", dark: false }]
    }
    function test_textsStandOut(data) {
        CentralManager.darkTheme = data.dark
        var pale = []
        pairs.forEach(function(pair) {
            pair[1].forEach(function(ground) {
                var seen = contrast(ApplicationStyle[pair[0]], ApplicationStyle[ground])
                var told = "%1 %2 on %3".arg(data.tag).arg(pair[0]).arg(ground)
                if (seen < least)
                    pale.push("%1: %2".arg(told).arg(seen.toFixed(2)))
            })
        })
        compare(pale, [])
    }
}
