import QtQuick
import Tavrel.Controls
import Tavrel.History
import Tavrel.Models

// Tabs above, what they show below.
FocusScope {
    id: root

    required property AppState app
    readonly property color glow: Theme.glows[app.tab]

    SpaceBackground {
        anchors.fill: parent
        tab: root.app.tab
        paused: root.app.motion.paused
    }

    Item {
        id: bar

        width: parent.width
        height: 60

        TabBar {
            anchors.centerIn: parent
            titles: root.app.tabTitles
            selection: root.app.tab
            busy: root.app.busy
            showsSelection: !root.app.showSettings
            colour: root.glow
            onChosen: index => root.app.tab = index
            Accessible.name: qsTr("Tabs")
        }
        Row {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 18
            spacing: 4

            IconButton {
                symbol: "clock.arrow.circlepath"
                text: qsTr("History")
                onClicked: root.app.showHistory = true
            }
            IconButton {
                symbol: "gearshape"
                text: qsTr("Settings")
                checkedLook: root.app.showSettings
                onClicked: root.app.showSettings = !root.app.showSettings
            }
        }
    }

    FocusScope {
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true

        ContentSwitcher {
            anchors.fill: parent
            focus: true
            identity: root.app.showSettings ? "settings" : root.app.tab.toString()
            screens: TabScreens { app: root.app }
        }
    }

    HistoryView {
        entries: root.app.clean.history
        motion: root.app.motion
        visible: root.app.showHistory
        onClosed: root.app.showHistory = false
    }

    Shortcut { sequences: [StandardKey.Preferences, "Ctrl+,"]; onActivated: root.app.showSettings = true }
    Shortcut { sequences: [StandardKey.Quit]; onActivated: Qt.quit() }
    Shortcut { sequences: [StandardKey.Close]; onActivated: root.Window.window.close() }
    Shortcut { sequence: "Ctrl+Y"; onActivated: root.app.showHistory = true }
    Shortcut { sequence: "Escape"; enabled: root.app.showSettings; onActivated: root.app.showSettings = false }
    Repeater {
        model: root.app.tabTitles.length

        Item {
            id: key

            required property int index

            Shortcut { sequence: "Ctrl+" + (key.index + 1); onActivated: root.app.tab = key.index }
        }
    }
}
