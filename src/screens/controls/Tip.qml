import QtQuick
import QtQuick.Templates as T

// A few words below what the pointer rests on.
T.ToolTip {
    id: tip

    required property bool shown

    visible: shown && text !== ""
    delay: 600
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 4 : 0
    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 6
    padding: 6
    leftPadding: 9
    rightPadding: 9
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Label {
        text: tip.text
        size: Theme.fontSmall
    }
    background: Rectangle {
        color: Qt.lighter(Theme.ink, 1.35)
        border.color: Theme.stroke
        radius: Theme.radiusSmall
    }
}
