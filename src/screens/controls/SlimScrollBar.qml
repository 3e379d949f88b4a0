import QtQuick
import QtQuick.Templates as T

// A thin bar at the edge of what scrolls.
T.ScrollBar {
    id: control

    implicitWidth: 8
    padding: 2
    visible: size < 1
    minimumSize: 0.06

    contentItem: Rectangle {
        implicitWidth: 4
        radius: 2
        color: control.pressed || control.hovered ? Theme.secondary : Theme.tertiary
    }
}
