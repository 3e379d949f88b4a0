import QtQuick
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Status

// How well the machine does, as one number.
Card {
    id: card

    required property var values
    readonly property color colour: values.state === StatusCards.Normal ? Theme.good
                                    : values.state === StatusCards.Elevated ? Theme.amber : Theme.danger

    implicitHeight: 104
    Accessible.role: Accessible.Grouping
    Accessible.name: [values.title, values.value, values.unit].join(", ")

    Ring {
        id: ring

        anchors.verticalCenter: parent.verticalCenter
        x: 18
        width: 72
        height: 72
        colour: card.colour
        fraction: card.values.share

        Label {
            anchors.centerIn: parent
            text: card.values.value
            size: 30
            font.weight: Font.DemiBold
            color: card.colour
            Accessible.ignored: true
        }
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: ring.right
        anchors.leftMargin: 18
        anchors.right: parent.right
        anchors.rightMargin: 18
        spacing: 5

        CardLabel {
            symbol: card.values.symbol
            title: card.values.title
        }
        Label {
            text: card.values.unit
            size: 13
            font.weight: Font.DemiBold
            color: card.colour
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: card.values.footer
            size: Theme.fontSmall
            color: Theme.secondary
        }
    }
}
