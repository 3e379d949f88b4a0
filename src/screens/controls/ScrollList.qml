import QtQuick
import QtQuick.Templates as T
import Tavrel.Models

// A list with a thin scroll bar that arrow keys walk. Animations pause while it scrolls.
ListView {
    id: list

    required property MotionPause motion

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    reuseItems: true
    activeFocusOnTab: true
    cacheBuffer: 200
    Accessible.role: Accessible.List
    onMovingChanged: motion.scrolling = moving
    Component.onDestruction: if (moving) motion.scrolling = false
    T.ScrollBar.vertical: SlimScrollBar {}
}
