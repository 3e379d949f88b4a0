import QtQuick
import Tavrel.Controls

// A title and what it means, with a control at the right.
Item {
    id: row

    required property string title
    required property string detail
    property bool isLast: false
    default property alias control: place.data

    width: parent ? parent.width : 0
    implicitHeight: Math.max(texts.implicitHeight + 26, 58)

    Column {
        id: texts

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: 18
        anchors.right: place.left
        anchors.rightMargin: 18
        spacing: 3

        Label {
            width: parent.width
            text: row.title
            size: 13
            font.weight: Font.Medium
        }
        Label {
            width: parent.width
            text: row.detail
            size: Theme.fontSmall
            color: Theme.secondary
            wrapMode: Text.Wrap
            lineHeight: 1.15
        }
    }
    Item {
        id: place

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 18
        width: childrenRect.width
        height: childrenRect.height
    }
    Rectangle {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 18
        height: 1
        visible: !row.isLast
        color: Theme.stroke
    }
}
