import QtQuick
import Tavrel.Controls

// One figure of the machine: what it is, how much, and a small picture of it.
Card {
    id: card

    required property string symbol
    required property var values
    property color colour: Theme.secondary
    property string chip
    default property alias graph: graph.data

    implicitHeight: 128
    Accessible.role: Accessible.Grouping
    Accessible.name: values.title + ", " + values.value + " " + values.unit + ", " + values.footer

    CardLabel {
        x: 14
        y: 12
        symbol: card.symbol
        title: card.values.title
        colour: card.colour
    }
    Label {
        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 13
        text: card.chip
        size: Theme.fontSmall
        color: Theme.tertiary
        Accessible.ignored: true
    }
    Row {
        id: figure

        x: 14
        y: 33
        spacing: 5

        Label {
            id: value

            text: card.values.value
            size: 24
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Label {
            anchors.baseline: value.baseline
            text: card.values.unit
            size: Theme.fontSubtitle
            color: Theme.secondary
            Accessible.ignored: true
        }
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
