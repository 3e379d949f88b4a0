import QtQuick
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// The way here, what is shown of it, and how full the disk is.
Item {
    id: header

    required property AnalyzeModel model
    required property AnalyzeState state

    implicitHeight: 36

    IconButton {
        id: back

        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.left"
        text: qsTr("Back")
        enabled: !header.model.atRoot
        onClicked: header.model.goBack()
    }
    Breadcrumbs {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: back.right
        anchors.leftMargin: 4
        anchors.right: picker.left
        anchors.rightMargin: Theme.gap
        model: header.model
    }
    SubTabs {
        id: picker

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: again.left
        anchors.rightMargin: Theme.gap
        titles: [qsTr("Contents"), qsTr("Large files")]
        selection: header.model.mode
        colour: Theme.glows[3]
        onChosen: index => header.model.mode = index
        Accessible.name: qsTr("Shown")
    }
    IconButton {
        id: again

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: badge.left
        anchors.rightMargin: Theme.gap
        symbol: "arrow.clockwise"
        text: qsTr("Measure again")
        onClicked: header.model.rescan()
    }
    DiskUsageBadge {
        id: badge

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        state: header.state
    }
}
