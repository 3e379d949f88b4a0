import QtQuick

// A word on a capsule of its colour.
Rectangle {
    required property string text
    required property color colour

    implicitWidth: label.implicitWidth + 14
    implicitHeight: label.implicitHeight + 6
    radius: height / 2
    color: Theme.faded(colour, 0.07)
    border.width: 1
    border.color: Theme.faded(colour, 0.18)

    Label {
        id: label

        anchors.centerIn: parent
        text: parent.text
        size: Theme.fontSmall
        color: parent.colour
    }
}
