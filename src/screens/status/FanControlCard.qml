import QtQuick
import Tavrel.Controls
import Tavrel.Graphs

// How fast the fans run.
Card {
    id: card

    required property var values

    implicitHeight: Math.max(128, column.implicitHeight + 26)
    Accessible.role: Accessible.Grouping
    Accessible.name: values.title + ", " + values.value + " " + values.unit + ", " + values.footer + ", " + values.detail

    Column {
        id: column

        x: 14
        y: 12
        width: parent.width - 28
        spacing: 8

        CardLabel {
            symbol: card.values.symbol
            title: card.values.title
            colour: Theme.glows[1]
        }
        Row {
            spacing: 5

            Label {
                id: speed

                text: card.values.value
                size: 29
                font.weight: Font.Bold
                Accessible.ignored: true
            }
            Label {
                anchors.baseline: speed.baseline
                text: card.values.unit
                size: 13
                color: Theme.secondary
                Accessible.ignored: true
            }
        }
        Meter {
            width: parent.width
            height: 8
            colour: Theme.glows[1]
            fraction: card.values.share
        }
        Label {
            text: card.values.footer
            size: 12
            color: Theme.secondary
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            visible: text !== ""
            text: card.values.detail
            size: Theme.fontSmall
            color: Theme.tertiary
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
}
