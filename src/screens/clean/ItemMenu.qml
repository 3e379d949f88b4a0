import QtQuick
import Tavrel.Controls

// What can be done with an item besides choosing it.
ContextMenu {
    id: menu

    required property string path

    ContextMenuItem {
        text: qsTr("Show in Finder")
        onTriggered: Desktop.reveal(menu.path)
    }
    ContextMenuItem {
        text: qsTr("Copy Path")
        onTriggered: Desktop.copy(menu.path)
    }
}
