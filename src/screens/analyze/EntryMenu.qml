import QtQuick
import Tavrel.Controls

// What can be done with the entry that was pointed at: its row may have changed places since.
ContextMenu {
    id: menu

    property url entry
    property bool removable: false

    signal trashed(entry: url)

    function show(entry: url, removable: bool): void {
        menu.entry = entry
        menu.removable = removable
        popup()
    }

    ContextMenuItem {
        text: qsTr("Show in Finder")
        onTriggered: Desktop.revealFile(menu.entry)
    }
    ContextMenuItem {
        text: qsTr("Move to Trash")
        enabled: menu.removable
        onTriggered: menu.trashed(menu.entry)
    }
}
