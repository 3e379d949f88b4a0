import QtQuick
import Tavrel.Controls
import Tavrel.Models

// Says that the system hides something, and where to change that.
Card {
    id: banner

    signal checked

    implicitHeight: 68
    color: Theme.faded(Theme.review, 0.08)
    border.color: Theme.faded(Theme.review, 0.25)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title.text + ". " + sentence.text

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        x: 18
        name: "lock.shield"
        size: 24
        color: Theme.review
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: symbol.right
        anchors.leftMargin: 14
        anchors.right: buttons.left
        anchors.rightMargin: 14
        spacing: 3

        Label {
            id: title

            width: parent.width
            text: qsTr("Full Disk Access is off")
            size: Theme.fontSubtitle
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Label {
            id: sentence

            width: parent.width
            text: qsTr("macOS hides Mail, Safari and the Trash from Tavrel until you allow it.")
            size: Theme.fontSmall
            color: Theme.secondary
            Accessible.ignored: true
        }
    }
    Row {
        id: buttons

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 14
        spacing: Theme.gap

        PillButton {
            text: qsTr("Open Settings")
            colour: Theme.review
            onClicked: Desktop.openFullDiskAccessSettings()
        }
        PillButton {
            text: qsTr("Check")
            kind: PillButton.Kind.Secondary
            onClicked: banner.checked()
        }
    }
}
