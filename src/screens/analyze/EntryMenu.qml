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
    // Whether that key asks for the menu, which it then shows at `row`.
    function takes(event: var, entry: url, removable: bool, row: Item): bool {
        if (event.key !== Qt.Key_Menu && (event.key !== Qt.Key_F10 || event.modifiers !== Qt.ShiftModifier)) return false
        menu.entry = entry
        menu.removable = removable
        popup(row, 24, row.height)
        return true
    }

    ContextMenuItem {
        text: qsTr("Show in Finder")
        onTriggered: Desktop.revealFile(menu.entry)
    }
    ContextMenuItem {
        text: qsTr("Move to Trash")
        visible: menu.removable
        height: visible ? implicitHeight : 0
        onTriggered: menu.trashed(menu.entry)
    }
}
