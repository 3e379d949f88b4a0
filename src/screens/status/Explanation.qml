import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls

// A sentence beside what was asked about.
T.Popup {
    id: popup

    required property Item anchorItem
    required property string text

    x: anchorItem.x + anchorItem.width + 6
    y: anchorItem.y + (anchorItem.height - height) / 2
    margins: 8
    padding: 10
    leftPadding: 12
    rightPadding: 12
    implicitWidth: Math.min(label.implicitWidth, 320) + leftPadding + rightPadding
    implicitHeight: label.implicitHeight + topPadding + bottomPadding
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

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
