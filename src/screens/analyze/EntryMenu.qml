import QtQuick
import Tavrel.Controls

// What can be done with an entry.
ContextMenu {
    id: menu

    required property string path
    required property bool removable

    signal trashed()

    ContextMenuItem {
        text: qsTr("Show in Finder")
        onTriggered: Desktop.reveal(menu.path)
    }
    ContextMenuItem {
        text: qsTr("Move to Trash")
        enabled: menu.removable
        onTriggered: menu.trashed()
    }
}
