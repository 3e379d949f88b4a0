import QtQuick
import Tavrel.Clean
import Tavrel.Controls
import Tavrel.Models

// The four modes of cleaning, each with its list and its words.
FocusScope {
    id: tab

    required property AppState app
    readonly property CleanState clean: app.clean
    readonly property var modes: [
        {
            model: clean.junk,
            idleTitle: qsTr("Ready to clean"),
            idleSubtitle: qsTr("Caches, logs, Xcode, package managers, browsers and the Trash"),
            reviewTitle: qsTr("System junk"),
            actionTitle: qsTr("Clean")
        },
        {
            model: clean.ai,
            idleTitle: qsTr("AI leftovers"),
            idleSubtitle: qsTr("Old Claude Code and Codex sessions, agent worktrees, CLI versions and local models"),
            reviewTitle: qsTr("AI tools"),
            actionTitle: qsTr("Clean")
        },
        {
            model: clean.projects,
            idleTitle: qsTr("Project artifacts"),
            idleSubtitle: qsTr("node_modules, target, .venv and friends in projects you're not touching"),
            reviewTitle: qsTr("Build artifacts"),
            actionTitle: qsTr("Purge")
        },
        {
            model: clean.installers,
            idleTitle: qsTr("Leftover installers"),
            idleSubtitle: qsTr(".dmg, .pkg and .xip files in Downloads, Desktop and Documents"),
            reviewTitle: qsTr("Installers"),
            actionTitle: qsTr("Remove")
        }
    ]

    SubTabs {
        id: modeTabs

        anchors.horizontalCenter: parent.horizontalCenter
        titles: tab.app.cleanModeTitles
        selection: tab.app.cleanMode
        onChosen: index => tab.app.cleanMode = index
        Accessible.name: qsTr("Modes")
    }
    CleanScreen {
        readonly property var mode: tab.modes[tab.app.cleanMode]

        anchors.top: modeTabs.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        trashEmptier: tab.clean.trashEmptier
        show: tab.app.show
        motion: tab.app.motion
        preferences: tab.app.preferences
        model: mode.model
        idleTitle: mode.idleTitle
        idleSubtitle: mode.idleSubtitle
        reviewTitle: mode.reviewTitle
        actionTitle: mode.actionTitle
        glow: Qt.rgba(0.4, 0.62, 1, 1)
    }
}
