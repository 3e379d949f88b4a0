import QtQuick
import Tavrel.Controls

// One figure of the machine: what it is, how much, and a small picture of it.
Card {
    id: card

    required property var values
    property color colour: Theme.secondary
    default property alias graph: graph.data

    implicitHeight: 128
    Accessible.role: Accessible.Grouping
    Accessible.name: [values.title, values.chip, values.value + " " + values.unit, values.footer].filter(Boolean).join(", ")

    CardLabel {
        id: title

        x: 14
        y: 12
        symbol: card.values.symbol
        title: card.values.title
        colour: card.colour
    }
    Label {
        anchors.left: title.right
        anchors.leftMargin: Theme.gap
        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 13
        horizontalAlignment: Text.AlignRight
        text: card.values.chip
        size: Theme.fontSmall
        color: Theme.tertiary
        Accessible.ignored: true
    }
    ValueRow {
        id: figure

        x: 14
        y: 33
        maximumWidth: card.width - 28
        value: card.values.value
        unit: card.values.unit
        size: 24
    }
    Item {
        id: graph

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: figure.bottom
        anchors.bottom: footer.top
        anchors.margins: 14
        anchors.topMargin: 6
        anchors.bottomMargin: 6
    }
    Label {
        id: footer

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 14
        anchors.bottomMargin: 11
        text: card.values.footer
        size: Theme.fontSmall
        color: Theme.secondary
        Accessible.ignored: true
    }
}
