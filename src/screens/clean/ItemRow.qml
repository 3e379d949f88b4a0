import QtQuick
import Tavrel.Controls

// One thing that can go.
Item {
    id: item

    required property RowData row

    HoverHandler { id: hover }
    TapHandler {
        acceptedButtons: Qt.RightButton
        enabled: item.row.path !== ""
        onTapped: menu.popup()
    }
    TapHandler { onTapped: item.row.toggled() }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        radius: Theme.radiusSmall
        color: hover.hovered ? Theme.cardHover : "transparent"
    }
    CheckBox {
        id: box

        anchors.verticalCenter: parent.verticalCenter
        x: 40
        mark: item.row.mark
        text: item.row.title
        focusPolicy: Qt.NoFocus
        onClicked: item.row.toggled()
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: box.right
        anchors.leftMargin: 12
        anchors.right: chips.left
        anchors.rightMargin: 12
        spacing: 1

        Label {
            width: parent.width
            text: item.row.title
            elide: Text.ElideMiddle
        }
        Label {
            width: parent.width
            visible: text !== ""
            text: item.row.summary
            size: Theme.fontSmall
            color: Theme.secondary
        }
    }
    Row {
        id: chips

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: size.left
        anchors.rightMargin: 12
        spacing: 6

        Chip {
            visible: item.row.review === true
            text: qsTr("Review")
            colour: Theme.review
        }
        Chip {
            visible: item.row.permanent === true
            text: qsTr("Permanent")
            colour: Theme.danger
        }
        Chip {
            visible: item.row.admin === true
            text: qsTr("admin")
            colour: Theme.glows[2]
        }
    }
    Label {
        id: size

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 20
        width: Math.max(72, implicitWidth)
        horizontalAlignment: Text.AlignRight
        text: item.row.size
        color: Theme.secondary
    }
    ItemMenu {
        id: menu

        path: item.row.path
    }
}
