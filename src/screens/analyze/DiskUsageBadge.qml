import QtQuick
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Models

// How full the disk is.
Row {
    id: badge

    required property AnalyzeState state

    spacing: 8
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Disk use") + ", " + state.diskText

    Meter {
        anchors.verticalCenter: parent.verticalCenter
        width: 60
        height: 8
        colour: Theme.glows[3]
        fraction: badge.state.diskShare
    }
    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: badge.state.diskText
        size: Theme.fontSmall
        color: Theme.secondary
        Accessible.ignored: true
    }
}
