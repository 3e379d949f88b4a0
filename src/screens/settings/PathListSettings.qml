import QtQuick
import QtQuick.Dialogs
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models

// A list of folders to add to, by a dialog or by dropping them here, and to take from.
SettingsPage {
    id: page

    required property Preferences preferences
    required property int list
    required property list<string> paths
    required property string title
    property int selection: -1

    heading: title

    function removeSelected(): void {
        if (selection < 0 || selection >= paths.length) return
        preferences.removeFolder(list, selection)
        selection = Math.min(selection, paths.length - 1)
    }

    Card {
        width: parent.width
        height: Math.max(rows.implicitHeight + 8, 88)
        border.color: drop.containsDrag ? Theme.glows[0] : Theme.stroke

        Label {
            anchors.centerIn: parent
            visible: page.paths.length === 0
            text: qsTr("No folders added yet")
            color: Theme.tertiary
        }
        Column {
            id: rows

            y: 4
            width: parent.width

            Repeater {
                model: page.paths

                T.AbstractButton {
                    id: folder

                    required property int index
                    required property string modelData
                    readonly property bool isSelected: page.selection === index

                    width: rows.width
                    height: 36
                    text: modelData
                    hoverEnabled: true
                    focusPolicy: Qt.StrongFocus
                    Accessible.role: Accessible.ListItem
                    Accessible.name: text
                    Accessible.selectable: true
                    Accessible.selected: isSelected
                    onClicked: page.selection = index
                    onActiveFocusChanged: if (activeFocus) page.selection = index
                    Keys.onDeletePressed: page.removeSelected()
                    Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                    Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)

                    background: Rectangle {
                        anchors.fill: parent
                        anchors.leftMargin: 5
                        anchors.rightMargin: 5
                        radius: Theme.radiusSmall + 2
                        color: folder.isSelected ? Theme.faded(Theme.glows[0], 0.22)
                             : folder.hovered ? Theme.cardHover : "transparent"

                        FocusRing {
                            shown: folder.visualFocus
                            gap: 0
                            radius: Theme.radiusSmall + 2
                        }
                    }
                    contentItem: Item {
                        Symbol {
                            id: icon

                            anchors.verticalCenter: parent.verticalCenter
                            x: 18
                            name: "folder"
                            size: 17
                            color: Theme.secondary
                        }
                        Label {
                            anchors.verticalCenter: parent.verticalCenter
                            anchors.left: icon.right
                            anchors.leftMargin: 10
                            anchors.right: parent.right
                            anchors.rightMargin: 18
                            text: folder.text
                            elide: Text.ElideMiddle
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
        DropArea {
            id: drop

            anchors.fill: parent
            onDropped: dropped => page.preferences.addFolders(page.list, dropped.urls)
        }
    }
    Row {
        spacing: Theme.gap

        IconButton {
            symbol: "plus"
            text: qsTr("Add")
            onClicked: chooser.open()
        }
        IconButton {
            symbol: "minus"
            text: qsTr("Remove")
            enabled: page.selection >= 0 && page.selection < page.paths.length
            onClicked: page.removeSelected()
        }
    }

    FolderDialog {
        id: chooser

        onAccepted: page.preferences.addFolders(page.list, [selectedFolder])
    }
}
