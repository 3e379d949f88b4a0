import QtQuick

// Says that something goes on for which there is no figure.
Item {
    id: spinner

    property color colour: Theme.text

    implicitWidth: 14
    implicitHeight: 14

    Repeater {
        model: 8

        Rectangle {
            required property int index

            x: spinner.width / 2 - width / 2 + Math.cos(index * Math.PI / 4) * 5
            y: spinner.height / 2 - height / 2 + Math.sin(index * Math.PI / 4) * 5
            width: 3
            height: 3
            radius: 1.5
            color: spinner.colour
            opacity: 0.2 + index * 0.1
        }
    }

    RotationAnimator on rotation {
        running: spinner.visible && !Theme.reduceMotion && !Theme.paused
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
    }
}
