import QtQuick 2.15
import "KernoHitTest.js" as HitTest

// The bubbles that a pointer has opened, one for each level of the hierarchy.
QtObject {
    id: root

    property Item area: null
    property Item canvas: null
    property Item level0Kerno: null
    property Item level1Kerno: null
    property Item level2Kerno: null
    readonly property int level0KernoId: level0Kerno ? level0Kerno.kernoId : -1
    readonly property int level1KernoId: level1Kerno ? level1Kerno.kernoId : -1
    readonly property int level2KernoId: level2Kerno ? level2Kerno.kernoId : -1

    function topLevelKerno() {
        return level2Kerno || level1Kerno || level0Kerno
    }

    function clear() {
        level2Kerno = null
        level1Kerno = null
        level0Kerno = null
    }

    function kernosAt(mouse, parent, level) {
        return HitTest.getKernosBelowCursor(area, mouse, [], parent, level, "kerno")
    }

    function takeLevel0(kerno) {
        level2Kerno = null
        level1Kerno = null
        level0Kerno = kerno
    }

    // Opens the next level under the point, or else closes the levels that the point has left.
    function follow(mouse, level1Allowed) {
        if (!level0Kerno)
            return
        var found
        if (!level1Kerno && level1Allowed && level0Kerno.ring) {
            found = kernosAt(mouse, level0Kerno.ring, 1)
            if (found.length > 0) {
                level1Kerno = found[0]
                return
            }
        }
        if (level1Kerno && !level2Kerno) {
            found = kernosAt(mouse, level1Kerno.ring, 2)
            if (found.length > 0) {
                level2Kerno = found[0]
                return
            }
        }
        __close(mouse)
    }

    function __close(mouse) {
        if (level2Kerno) {
            if (HitTest.contains(area, mouse, level2Kerno))
                return
            level2Kerno = null
        }
        if (level1Kerno && !HitTest.contains(area, mouse, level1Kerno.ring))
            level1Kerno = null
        // A bubble without a ring is left at its own edge.
        if (!level1Kerno && !HitTest.contains(area, mouse, level0Kerno.ring || level0Kerno))
            level0Kerno = null
    }
}
