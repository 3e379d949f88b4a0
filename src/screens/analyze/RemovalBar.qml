import QtQuick
import Tavrel.Controls
import Tavrel.Models

// What is marked and what to do with it, or what the last removal did.
Card {
    id: bar

    required property Preferences preferences
    required property string trashFolder
    required property AnalyzeModel model
    readonly property bool hasSelection: model.selectedCount > 0
    readonly property bool wanted: hasSelection || model.hasLastRemoval
    // What a removal did is told before anything else, until something else is marked.
    property bool tells: false
    readonly property int marked: model.selectedCount
    onMarkedChanged: tells = false

    Connections {
        target: bar.model
        function onRemovalChanged(): void { bar.tells = bar.model.hasLastRemoval && !bar.model.removing }
    }

    implicitHeight: 52
    visible: wanted
    color: Qt.rgba(0.1, 0.14, 0.13, 0.92)

    Label {
        id: report

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: buttons.left
        anchors.rightMargin: 12
        text: bar.hasSelection && !bar.tells ? bar.model.selectionText : bar.model.lastRemovalText
        size: Theme.fontSubtitle
        font.weight: Font.Medium

        HoverHandler { id: hover }
        Tip {
            text: bar.model.lastRemovalReasons
            shown: hover.hovered && (bar.tells || !bar.hasSelection)
        }
    }
    Row {
        id: buttons

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 10
        spacing: Theme.gap

        PillButton {
            visible: bar.hasSelection
            kind: PillButton.Kind.Secondary
            text: qsTr("Clear")
            onClicked: bar.model.clearSelection()
        }
        PillButton {
            visible: bar.hasSelection
            colour: Theme.glows[3]
            text: bar.preferences.dryRun ? qsTr("Preview removal") : qsTr("Move to Trash")
            symbol: "trash"
            busy: bar.model.removing
            enabled: !bar.model.removing
            onClicked: confirmation.visible = true
        }
        PillButton {
            visible: !bar.hasSelection && bar.model.hasLastRemoval
            kind: PillButton.Kind.Secondary
            text: qsTr("Open Trash")
            onClicked: Desktop.openFolder(bar.trashFolder)
        }
    }
    ConfirmDialog {
        id: confirmation

        title: bar.model.questionText
        message: qsTr("You can put them back from the Trash until you empty it.")
        action: qsTr("Move to Trash")
        onConfirmed: bar.model.trashSelected()
    }
}
