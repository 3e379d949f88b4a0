import QtQuick
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// Where the disk went: places, the picture of a folder, and its table.
FocusScope {
    id: view

    objectName: "analyzeView"

    required property AnalyzeState analyze
    required property ShowState show
    required property MotionPause motion
    required property Preferences preferences
    readonly property AnalyzeModel model: analyze.model
    readonly property bool showsFolders: model.mode === AnalyzeModel.Mode.Folders
    readonly property bool narrow: width < 1140
    readonly property bool compact: width < 920
    readonly property bool inUse: Window.active

    // Something may have been mounted meanwhile.
    onInUseChanged: if (inUse) analyze.places.look()

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Analyze")
    Component.onCompleted: {
        if (model.count === 0) model.load()
        analyze.places.look()
    }

    Keys.onPressed: event => {
        const alone = event.modifiers === Qt.NoModifier
        const withAlt = event.modifiers === Qt.AltModifier
        if ((alone && event.key === Qt.Key_Backspace) || (withAlt && event.key === Qt.Key_Left) || event.key === Qt.Key_Back) model.goBack()
        else if ((withAlt && event.key === Qt.Key_Right) || event.key === Qt.Key_Forward) model.goForward()
        else if (!view.showsFolders || !table.takes(event)) return
        event.accepted = true
    }

    Explorer {
        id: explorer

        model: view.model
    }
    TapHandler {
        acceptedButtons: Qt.BackButton
        onTapped: view.model.goBack()
    }
    TapHandler {
        acceptedButtons: Qt.ForwardButton
        onTapped: view.model.goForward()
    }

    AnalyzeHeader {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        model: view.model
        state: view.analyze
    }
    FolderPanel {
        id: panel

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin
        anchors.top: header.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.margin
        width: view.narrow ? 174 : 230
        places: view.analyze.places
        show: view.show
        model: view.model
        explorer: explorer
    }
    Item {
        id: content

        anchors.left: panel.right
        anchors.leftMargin: Theme.gapLarge
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        anchors.top: header.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: bar.wanted ? bar.top : parent.bottom
        anchors.bottomMargin: bar.wanted ? Theme.gap : Theme.margin

        OrbitChart {
            id: chart

            readonly property real side: Math.min(content.height, content.width - Theme.gapLarge - (view.compact ? 396 : view.narrow ? 444 : 500))

            anchors.verticalCenter: parent.verticalCenter
            visible: view.showsFolders
            width: side
            height: side
            layout: explorer.layout
            focusId: explorer.focusId
            folder: view.model.folder
            icon: explorer.icon
            name: explorer.name
            size: explorer.size
            detail: explorer.detail
            onFocused: id => explorer.focus(id)
            onUnfocused: id => explorer.unfocus(id)
            onOpened: id => explorer.open(id)
        }
        DetailTable {
            id: table

            anchors.left: chart.right
            anchors.leftMargin: Theme.gapLarge
            anchors.right: parent.right
            height: parent.height
            visible: view.showsFolders
            focus: view.showsFolders
            compact: view.compact
            rows: view.analyze.rows
            show: view.show
            motion: view.motion
            model: view.model
        }
        Loader {
            anchors.fill: parent
            active: !view.showsFolders
            focus: !view.showsFolders
            sourceComponent: LargeFilesList {
                focus: true
                show: view.show
                motion: view.motion
                model: view.model
            }
        }
    }
    RemovalBar {
        id: bar

        anchors.left: content.left
        anchors.right: content.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.margin
        preferences: view.preferences
        trashFolder: view.analyze.trashFolder
        model: view.model
    }
}
