import QtQuick
import Tavrel.Controls

// One process: pinned or not, what it uses, and what it is.
Item {
    id: row

    required property int index
    required property int pid
    required property string name
    required property string cpuText
    required property string memoryText
    required property string powerText
    required property bool pinned
    required property string explanation
    required property string powerNote
    required property bool explaining
    readonly property Item infoButton: info

    signal pinToggled()
    signal explanationToggled()

    implicitHeight: 30
    Accessible.role: Accessible.ListItem
    Accessible.name: row.name + ", " + cpuText + ", " + memoryText + ", " + powerText

    HoverHandler { id: hover }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        radius: Theme.radiusSmall
        color: hover.hovered ? Theme.card : "transparent"
    }
    IconButton {
        id: pin

        anchors.verticalCenter: parent.verticalCenter
        width: 24
        height: 24
        symbolSize: 14
        symbol: "pin"
        opacity: row.pinned ? 1 : hover.hovered || visualFocus ? 0.7 : 0.25
        text: row.pinned ? qsTr("Unpin") : qsTr("Pin to top")
        onClicked: row.pinToggled()
    }
    Label {
        id: name

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: pin.right
        anchors.leftMargin: 8
        width: Math.min(implicitWidth, cpu.x - x - 36)
        text: row.name
        font.weight: row.pinned ? Font.DemiBold : Font.Normal
        Accessible.ignored: true
    }
    IconButton {
        id: info

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: name.right
        anchors.leftMargin: 4
        width: 22
        height: 22
        symbolSize: 14
        visible: row.explanation !== ""
        symbol: "info.circle"
        text: qsTr("What is this?")
        checkedLook: row.explaining
        onClicked: row.explanationToggled()
    }
    Label {
        id: cpu

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: memory.left
        width: 76
        horizontalAlignment: Text.AlignRight
        text: row.cpuText
        Accessible.ignored: true
    }
    Label {
        id: memory

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: power.left
        width: 96
        horizontalAlignment: Text.AlignRight
        text: row.memoryText
        color: Theme.secondary
        Accessible.ignored: true
    }
    Label {
        id: power

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        width: 76
        horizontalAlignment: Text.AlignRight
        text: row.powerText
        color: Theme.secondary
        Accessible.ignored: true

        HoverHandler { id: powerHover }
        Tip { text: row.powerNote; shown: powerHover.hovered }
    }
}
