import QtQuick

// The brand mark: a dark disc in a bright ring, with a spark that goes round as `phase` grows.
Item {
    id: mark

    property real phase: 0
    property color colour: Theme.glows[0]

    implicitWidth: 20
    implicitHeight: 20
    Accessible.role: Accessible.Graphic
    Accessible.name: "Tavrel"

    Rectangle {
        anchors.centerIn: parent
        width: parent.width * 0.8
        height: width
        radius: width / 2
        color: "black"
        border.width: Math.max(1.5, width * 0.15)
        border.color: mark.colour
    }
    Rectangle {
        width: mark.width * 0.15
        height: width
        radius: width / 2
        x: mark.width * (0.5 + 0.45 * Math.cos(mark.phase * 2 * Math.PI)) - width / 2
        y: mark.height * (0.5 - 0.5 * 0.45 * Math.sin(mark.phase * 2 * Math.PI)) - height / 2
        color: "white"
    }
}
