import QtQuick
import Tavrel.Controls

// The head of a category's card. A click anywhere on it opens or closes the list.
Item {
    id: card

    required property RowData row

    HoverHandler { id: hover }
    TapHandler { onTapped: card.row.expansionToggled() }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.card
        visible: hover.hovered
    }
    CheckBox {
        id: box

        anchors.verticalCenter: parent.verticalCenter
        x: 16
        mark: card.row.mark
        text: card.row.title
        focusPolicy: Qt.NoFocus
        onClicked: card.row.toggled()
    }
    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: box.right
        anchors.leftMargin: 14
        width: 22
        name: card.row.symbol ?? ""
        size: 19
        color: Theme.glows[0]
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: symbol.right
        anchors.leftMargin: 12
        anchors.right: figures.left
        anchors.rightMargin: 12
        spacing: 2

        Label {
            width: parent.width
            text: card.row.title
            size: 13
            font.weight: Font.Medium
        }
        Label {
            width: parent.width
            text: card.row.summary
            size: Theme.fontSmall
            color: Theme.secondary
        }
    }
    Column {
        id: figures

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: chevron.left
        anchors.rightMargin: 12
        spacing: 2

        Label {
            anchors.right: parent.right
            text: card.row.size
            size: 13
            font.weight: Font.Medium
        }
        Label {
            anchors.right: parent.right
            text: qsTr("%1 · %2").arg(card.row.countText ?? "").arg(card.row.selectedText ?? "")
            size: Theme.fontSmall
            color: Theme.secondary
        }
    }
    IconButton {
        id: chevron

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 8
        symbol: "chevron.down"
        text: card.row.expanded ? qsTr("Hide items") : qsTr("Show items")
        focusPolicy: Qt.NoFocus
        rotation: card.row.expanded ? 180 : 0
        onClicked: card.row.expansionToggled()

        Behavior on rotation { NumberAnimation { duration: Theme.moderate; easing.type: Easing.OutCubic } }
    }
}
