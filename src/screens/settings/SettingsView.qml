import QtQuick
import Tavrel.Controls
import Tavrel.Models

// The settings in place of a tab: sections at the side, the chosen one beside them.
FocusScope {
    id: view

    objectName: "settingsView"

    required property AppState app
    property int section: 0
    readonly property list<string> titles: [
        qsTr("General"), qsTr("Menu Bar"), qsTr("Protected"), qsTr("Code folders")
    ]

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Settings")

    Row {
        anchors.fill: parent
        anchors.margins: Theme.margin
        anchors.topMargin: Theme.gap
        spacing: Theme.margin

        SectionList {
            id: sections

            width: 180
            focus: true
            titles: view.titles
            section: view.section
            onChosen: index => view.section = index
        }
        Loader {
            width: parent.width - sections.width - parent.spacing
            height: parent.height
            sourceComponent: [general, menuBar, protectedFolders, codeFolders][view.section]
        }
    }

    Component {
        id: general

        GeneralSettings { app: view.app }
    }
    Component {
        id: menuBar

        MenuBarSettings { preferences: view.app.preferences }
    }
    Component {
        id: protectedFolders

        PathListSettings {
            preferences: view.app.preferences
            list: Preferences.PathList.ProtectedPaths
            paths: view.app.preferences.protectedPaths
            title: qsTr("Protected")
            explanation: qsTr("Tavrel never removes these folders or anything inside them.")
        }
    }
    Component {
        id: codeFolders

        PathListSettings {
            preferences: view.app.preferences
            list: Preferences.PathList.ProjectRoots
            paths: view.app.preferences.projectRoots
            title: qsTr("Code folders")
            explanation: qsTr("Projects scans these folders for build artifacts.")
        }
    }
}
