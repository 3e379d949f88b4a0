import QtQuick
import Tavrel.Controls

// A dark disc in a ring of light: brighter the further it is open, larger the more it has swallowed.
Item {
    id: disc

    required property color glow
    required property bool spinning
    required property real open
    property bool suction: false
    property real growth: 0

    Accessible.ignored: true

    Behavior on open { NumberAnimation { duration: Theme.irisDuration; easing.type: Easing.InOutCubic } }
    Behavior on growth { NumberAnimation { duration: Theme.irisDuration } }

    Item {
        anchors.centerIn: parent
        width: Math.min(parent.width, parent.height) * (0.8 + 0.2 * disc.growth)
        height: width

        Repeater {
            model: 14

            Rectangle {
                required property int index

                anchors.centerIn: parent
                width: parent.width * (0.56 + 0.032 * index)
                height: width
                radius: width / 2
                color: Theme.faded(disc.glow, (0.018 + 0.03 * disc.open) * (1 - index / 14))
            }
        }
        Rectangle {
            anchors.centerIn: parent
            width: parent.width * 0.5
            height: width
            radius: width / 2
            color: "#05070d"
            border.width: 3 + 3 * disc.open
            border.color: Theme.faded(Qt.lighter(disc.glow, 1.25), 0.55 + 0.45 * disc.open)
        }
        Rectangle {
            anchors.centerIn: parent
            width: parent.width * 0.42 * disc.open
            height: width
            radius: width / 2
            color: "black"
        }
    }
}
