import QtQuick

// Shows where the keyboard is.
Rectangle {
    required property bool shown
    property real gap: 2

    anchors.fill: parent
    anchors.margins: -gap
    visible: shown
    color: "transparent"
    border.color: Theme.glows[0]
    border.width: 2
    radius: Theme.radiusSmall + gap
}
