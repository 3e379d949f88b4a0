import QtQuick
import Tavrel.Controls

// What can be done with an entry.
ContextMenu {
    id: menu

    required property string path
    required property bool removable

    signal trashed()

    // By keyboard.
    function isAskedBy(event: var): bool {
        return event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
    }

    ContextMenuItem {
        text: qsTr("Show in Finder")
        onTriggered: Desktop.reveal(menu.path)
    }
    ContextMenuItem {
        text: qsTr("Move to Trash")
        visible: menu.removable
        height: visible ? implicitHeight : 0
        onTriggered: menu.trashed()
    }
}
