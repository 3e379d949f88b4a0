import QtQuick
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Status

// How full the battery is and how it ages, with the devices beside the machine.
Card {
    id: card

    required property bool hasBattery
    required property var values
    required property var accessories

    implicitHeight: Math.max(128, column.implicitHeight + 26)
    Accessible.role: Accessible.Grouping
    Accessible.name: hasBattery ? values.title + ", " + values.value + " %, " + values.chip + ", " + values.footer : qsTr("Accessories")

    Column {
        id: column

        x: 14
        y: 12
        width: parent.width - 28
        spacing: 8

        CardLabel {
            symbol: card.hasBattery ? card.values.symbol : "battery.75percent"
            title: card.hasBattery ? card.values.title : qsTr("Accessories")
            colour: Theme.good
        }
        ValueRow {
            id: percent

            visible: card.hasBattery
            value: card.values.value
            unit: "%"
            size: 30

            Label {
                anchors.baseline: percent.label.baseline
                leftPadding: 6
                text: card.values.chip
                size: Theme.fontSubtitle
                color: Theme.secondary
                Accessible.ignored: true
            }
        }
        Meter {
            visible: card.hasBattery
            width: parent.width
            height: 8
            colour: card.values.state === StatusCards.Critical ? Theme.danger : Theme.good
            fraction: card.values.share
        }
        Label {
            visible: card.hasBattery && text !== ""
            width: parent.width
            text: card.values.footer
            size: 12
            color: Theme.secondary
            Accessible.ignored: true
        }
        Repeater {
            model: card.accessories

            Item {
                id: accessory

                required property var modelData

                width: column.width
                height: 18
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.title + ", " + modelData.value + " %"

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: accessory.modelData.symbol
                    color: Theme.secondary
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    x: 24
                    width: parent.width - 70
                    text: accessory.modelData.title
                    size: 12
                    Accessible.ignored: true
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    anchors.right: parent.right
                    text: accessory.modelData.value + " %"
                    size: 12
                    color: Theme.secondary
                    Accessible.ignored: true
                }
            }
        }
    }
}
