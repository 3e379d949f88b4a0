import QtQuick

// Pulses while work goes on.
Rectangle {
    id: dot

    property color colour: Theme.glows[0]

    implicitWidth: 6
    implicitHeight: 6
    radius: 3
    color: colour
    Accessible.role: Accessible.Indicator
    Accessible.name: qsTr("Working")

    SequentialAnimation on opacity {
        running: dot.visible && !Theme.reduceMotion && !Theme.paused
        loops: Animation.Infinite

        NumberAnimation { to: 0.5; duration: Theme.pulse }
        NumberAnimation { to: 1; duration: Theme.pulse }
    }
}
