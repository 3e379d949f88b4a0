import QtQuick
import QtQuick.Templates as T

// On or off, at once.
T.Switch {
    id: control

    property color colour: Theme.glows[0]

    implicitWidth: 38
    implicitHeight: 22
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Accessible.name: text

    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()

    function press(): void {
        toggle()
        toggled()
    }

    indicator: Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: control.checked ? control.colour : Qt.rgba(1, 1, 1, 0.12)
        border.width: 1
        border.color: Theme.stroke

        Behavior on color { ColorAnimation { duration: Theme.quick } }

        Rectangle {
            x: control.checked ? parent.width - width - 3 : 3
            y: 3
            width: 16
            height: 16
            radius: 8
            color: "white"

            Behavior on x { NumberAnimation { duration: Theme.quick } }
        }
        FocusRing {
            shown: control.visualFocus
            radius: height / 2
        }
    }
}
