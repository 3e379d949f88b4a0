import QtQuick
import QtQuick.Templates as T

// A few words below what the pointer rests on; made when they are first wanted, since most never are.
Loader {
    id: tip

    required property string text
    required property bool shown

    active: shown && text !== ""

    sourceComponent: T.ToolTip {
        id: popup

        parent: tip.parent
        text: tip.text
        visible: true
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
            text: popup.text
            size: Theme.fontSmall
        }
        background: Rectangle {
            color: Qt.lighter(Theme.ink, 1.35)
            border.color: Theme.stroke
            radius: Theme.radiusSmall
        }
    }
}
