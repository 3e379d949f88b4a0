import QtQuick
import QtQuick.Templates as T

// One entry of a menu.
T.MenuItem {
    id: entry

    implicitWidth: 170
    implicitHeight: 28
    Accessible.name: text

    contentItem: Label {
        leftPadding: 10
        text: entry.text
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.radiusSmall
        color: entry.highlighted ? Theme.faded(Theme.glows[0], 0.3) : "transparent"
    }
}
