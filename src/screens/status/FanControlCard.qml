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
        ValueRow {
            value: card.values.value
            unit: card.values.unit
            size: 29
            weight: Font.Bold
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
