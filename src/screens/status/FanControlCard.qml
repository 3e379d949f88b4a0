import QtQuick
import Tavrel.Controls
import Tavrel.Graphs

// How fast the fans run.
Card {
    id: card

    required property var fans
    required property string detail

    implicitHeight: 128
    Accessible.role: Accessible.Grouping
    Accessible.name: fans.title + ", " + fans.value + " " + fans.unit + ", " + fans.footer + ", " + detail

    CardLabel {
        x: 14
        y: 12
        symbol: "fan.fill"
        title: card.fans.title
        colour: Theme.glows[1]
    }
    Row {
        id: speed

        x: 14
        y: 33
        spacing: 5

        Label {
            id: value

            text: card.fans.value
            size: 29
            font.weight: Font.Bold
            Accessible.ignored: true
        }
        Label {
            anchors.baseline: value.baseline
            text: card.fans.unit
            size: 13
            color: Theme.secondary
            Accessible.ignored: true
        }
    }
    Label {
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.bottom: note.top
        anchors.bottomMargin: 4
        text: card.fans.footer
        size: 12
        color: Theme.secondary
        Accessible.ignored: true
    }
    Label {
        id: note

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 14
        anchors.bottomMargin: 11
        text: card.detail
        size: Theme.fontSmall
        color: Theme.tertiary
        Accessible.ignored: true
    }
}
