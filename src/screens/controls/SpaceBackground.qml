import QtQuick
import Tavrel.Controls

// The sky behind every screen, in the colours of a tab.
Item {
    id: background

    required property int tab
    property bool animated: true
    property bool paused: false

    Backdrop {
        anchors.fill: parent
        upper: Theme.tintTops[background.tab]
        lower: Theme.tintBottoms[background.tab]
        glow: Theme.faded(Theme.glows[background.tab], background.animated ? 0.16 : 0.08)
    }
    Starfield {
        anchors.fill: parent
        live: background.animated && !Theme.reduceMotion
        paused: background.paused
    }
}
