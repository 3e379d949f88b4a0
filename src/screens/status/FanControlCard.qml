import QtQuick
import Tavrel.Controls
import Tavrel.Graphs

// How fast the fans run.
Card {
    id: card

    required property var fans
    required property string detail

    implicitHeight: Math.max(128, column.implicitHeight + 26)
    Accessible.role: Accessible.Grouping
    Accessible.name: fans.title + ", " + fans.value + " " + fans.unit + ", " + fans.footer + ", " + detail

    Column {
        id: column

        x: 14
        y: 12
        width: parent.width - 28
        spacing: 8

        CardLabel {
            symbol: "fan.fill"
            title: card.fans.title
            colour: Theme.glows[1]
        }
        Row {
            spacing: 5

            Label {
                id: speed

                text: card.fans.value
                size: 29
                font.weight: Font.Bold
                Accessible.ignored: true
            }
            Label {
                anchors.baseline: speed.baseline
                text: card.fans.unit
                size: 13
                color: Theme.secondary
                Accessible.ignored: true
            }
        }
        Meter {
            width: parent.width
            height: 8
            colour: Theme.glows[1]
            fraction: card.fans.share
        }
        Label {
            text: card.fans.footer
            size: 12
            color: Theme.secondary
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            visible: text !== ""
            text: card.detail
            size: Theme.fontSmall
            color: Theme.tertiary
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
}
