import QtQuick
import QtQuick.Templates as T

// A sheet over the window that holds the keyboard until it is answered.
T.Popup {
    id: sheet

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    padding: Theme.margin
    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding

    T.Overlay.modal: Rectangle { color: Theme.shade }

    background: Rectangle {
        radius: Theme.radius + 4
        color: Theme.ink
        border.width: 1
        border.color: Theme.stroke
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.moderate }
        NumberAnimation { property: "scale"; from: 0.94; to: 1; duration: Theme.moderate; easing.type: Easing.OutCubic }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Theme.quick }
    }
}
