import QtQuick
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Analyze

// How full the disk is.
Row {
    id: badge

    required property Explorer explorer

    spacing: 8
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Disk use") + ", " + explorer.diskText

    Meter {
        anchors.verticalCenter: parent.verticalCenter
        width: 60
        height: 8
        colour: Theme.glows[3]
        fraction: badge.explorer.diskShare
    }
    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: badge.explorer.diskText
        size: Theme.fontSmall
        color: Theme.secondary
        Accessible.ignored: true
    }
}
