pragma Singleton
import QtQuick 2.15

// Sizes that do not depend on the density of the screen: one unit is a pixel at 160 dots per inch and below.
QtObject {
    property real __pixelDensity: 1.0
    readonly property int dpi: Math.floor(__pixelDensity * 25.4)
    readonly property real _dp: Math.max(1, dpi / 160)

    function dp(value) {
        return value * _dp
    }
}
