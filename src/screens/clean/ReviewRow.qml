import QtQuick
import Tavrel.Controls

// One row of the review: the head of a card, or an item on it. The cards are drawn by their rows, so that a
// card of ten thousand items costs only what is in sight.
RowData {
    id: reviewRow

    implicitHeight: (isHead ? 58 : 44) + (isLast ? Theme.gap : 0)
    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.description: summary

    Item {
        anchors.fill: parent
        anchors.bottomMargin: reviewRow.isLast ? Theme.gap : 0
        clip: true

        Card { // reaches past the edges where the card goes on
            anchors.fill: parent
            anchors.topMargin: reviewRow.isHead ? 0 : -Theme.radius
            anchors.bottomMargin: reviewRow.isLast ? 0 : -Theme.radius
        }
        Loader {
            anchors.fill: parent
            sourceComponent: reviewRow.isHead ? card : item
        }
        FocusRing {
            shown: reviewRow.focusShown
            gap: -2
            radius: Theme.radius - 2
        }
    }

    Component {
        id: card

        CategoryCard { row: reviewRow }
    }
    Component {
        id: item

        ItemRow { row: reviewRow }
    }
}
