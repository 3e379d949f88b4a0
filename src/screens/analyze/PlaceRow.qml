import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls

// A folder to go to.
T.AbstractButton {
    id: row

    required property string symbol
    required property string title
    property bool selected: false
    property int indent: 0

    text: title
    implicitHeight: 28
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Accessible.name: title
    Accessible.selected: selected
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: Theme.radiusSmall
        color: row.selected ? Theme.faded(Theme.glows[3], 0.16) : row.hovered ? Theme.card : "transparent"

        FocusRing { shown: row.visualFocus; gap: 0 }
    }
    contentItem: Item {
        Symbol {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            x: 8 + Math.min(row.indent, 8) * 10
            name: row.symbol
            size: 14
            color: row.selected ? Theme.glows[3] : Theme.secondary
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: symbol.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: 8
            text: row.title
            size: 12
            elide: Text.ElideMiddle
            color: row.selected || row.hovered ? Theme.text : Theme.secondary
            Accessible.ignored: true
        }
    }
}
