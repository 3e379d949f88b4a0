import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls

// A sentence beside the button that asks for it. A press of that button is left to the button, which would open
// again what the press had closed.
T.Popup {
    id: popup

    required property string text

    x: parent ? parent.width + 6 : 0
    y: parent ? (parent.height - height) / 2 : 0
    margins: 8
    padding: 10
    leftPadding: 12
    rightPadding: 12
    implicitWidth: Math.min(label.implicitWidth, 320) + leftPadding + rightPadding
    implicitHeight: label.implicitHeight + topPadding + bottomPadding
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Label {
        id: label

        text: popup.text
        size: 12
        wrapMode: Text.Wrap
    }
    background: Rectangle {
        radius: Theme.radiusSmall + 2
        color: Qt.lighter(Theme.ink, 1.4)
        border.width: 1
        border.color: Theme.stroke
    }
}
