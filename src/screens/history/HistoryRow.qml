import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls

// One clean: when, what, how much, and on demand which paths and what of them can be put back.
Card {
    id: row

    required property int index
    required property string date
    required property string action
    required property string countText
    required property string size
    required property string paths
    required property int waiting  // how many things are in the Trash
    required property string note
    property bool expanded: false
    property bool locked: false  // while a run is being put back

    signal putBack

    implicitHeight: head.height + (expanded ? details.implicitHeight + 12 : 0)
    clip: true

    Behavior on implicitHeight { NumberAnimation { duration: Theme.moderate; easing.type: Easing.OutCubic } }

    T.AbstractButton {
        id: head

        width: parent.width
        height: 52
        text: row.date
        hoverEnabled: true
        focusPolicy: Qt.StrongFocus
        Accessible.name: row.date + ", " + row.action + ", " + row.countText + ", " + row.size
        Accessible.checkable: true
        Accessible.checked: row.expanded
        onClicked: row.expanded = !row.expanded
        Keys.onReturnPressed: clicked()

        background: Rectangle {
            radius: Theme.radius
            color: head.hovered ? Theme.card : "transparent"

            FocusRing {
                shown: head.visualFocus
                gap: -2
                radius: Theme.radius - 2
            }
        }
        contentItem: Item {
            Column {
                anchors.verticalCenter: parent.verticalCenter
                x: 16
                spacing: 2

                Label { text: row.date; Accessible.ignored: true }
                Label {
                    text: row.countText
                    size: Theme.fontSmall
                    color: Theme.secondary
                    Accessible.ignored: true
                }
            }
            Chip {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: size.left
                anchors.rightMargin: 14
                text: row.action
                colour: Theme.glows[0]
            }
            Label {
                id: size

                anchors.verticalCenter: parent.verticalCenter
                anchors.right: chevron.left
                anchors.rightMargin: 12
                width: 74
                horizontalAlignment: Text.AlignRight
                text: row.size
                size: 13
                font.weight: Font.Medium
                Accessible.ignored: true
            }
            Symbol {
                id: chevron

                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: 14
                name: "chevron.down"
                size: 17
                color: Theme.secondary
                rotation: row.expanded ? 180 : 0
            }
        }
    }
    Column {
        id: details

        anchors.top: head.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 16
        anchors.rightMargin: 16
        spacing: Theme.gap
        visible: row.expanded

        Item {
            width: parent.width
            height: Math.max(remark.text ? remark.implicitHeight : 0, row.waiting > 0 ? button.implicitHeight : 0)
            visible: row.note !== "" || row.waiting > 0

            Label {
                id: remark

                anchors.left: parent.left
                anchors.right: row.waiting > 0 ? button.left : parent.right
                anchors.rightMargin: row.waiting > 0 ? Theme.gap : 0
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                text: row.note
                size: Theme.fontSmall
                wrapMode: Text.Wrap
            }
            PillButton {
                id: button

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                visible: row.waiting > 0
                enabled: !row.locked
                text: qsTr("Put back")
                kind: PillButton.Kind.Secondary
                Accessible.description: row.date
                onClicked: {
                    // It goes with what it put back.
                    head.forceActiveFocus(visualFocus ? Qt.TabFocusReason : Qt.MouseFocusReason)
                    row.putBack()
                }
            }
        }
        Label {
            width: parent.width
            text: row.expanded ? row.paths : ""
            size: 10.5
            color: Theme.secondary
            wrapMode: Text.WrapAnywhere
            lineHeight: 1.3
        }
    }
}
