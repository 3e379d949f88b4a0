import QtQuick
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Status

// How well the machine does, as one number.
Card {
    id: card

    required property int score
    required property int grade
    required property string gradeText
    required property string machine
    readonly property color colour: grade === StatusCards.Grade.Excellent ? Theme.good
                                    : grade === StatusCards.Grade.Good ? Theme.amber : Theme.danger

    implicitHeight: 104
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Health") + ", " + score + ", " + gradeText

    Ring {
        id: ring

        anchors.verticalCenter: parent.verticalCenter
        x: 18
        width: 72
        height: 72
        colour: card.colour
        fraction: card.score / 100

        Label {
            anchors.centerIn: parent
            text: card.score
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
            symbol: "sun.max"
            title: qsTr("Health")
        }
        Label {
            text: card.gradeText
            size: 13
            font.weight: Font.DemiBold
            color: card.colour
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: card.machine
            size: Theme.fontSmall
            color: Theme.secondary
        }
    }
}
