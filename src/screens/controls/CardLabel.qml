import QtQuick

// What a card is about.
Row {
    required property string symbol
    required property string title
    property color colour: Theme.secondary

    spacing: 6

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        name: parent.symbol
        size: 13
        color: parent.colour
    }
    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: parent.title
        size: Theme.fontSmall
        font.weight: Font.Medium
        color: parent.colour
    }
}
