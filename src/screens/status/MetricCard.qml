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
    Row {
        id: figure

        x: 14
        y: 33
        spacing: 5

        Label {
            id: value

            width: Math.min(implicitWidth, card.width - 28 - (unit.text === "" ? 0 : unit.width + figure.spacing))
            text: card.values.value
            size: 24
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 14
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Label {
            id: unit

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
