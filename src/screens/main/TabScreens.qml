import QtQuick
import Tavrel.Analyze
import Tavrel.Models
import Tavrel.Settings
import Tavrel.Status

// What stands in the content area, by its identity.
QtObject {
    id: screens

    required property AppState app

    function component(identity: string): Component {
        return ({ "settings": settings, "0": clean, "1": apps, "2": optimize, "3": analyze, "4": status })[identity]
    }

    readonly property Component settings: Component {
        SettingsView { app: screens.app; focus: true }
    }
    readonly property Component clean: Component {
        CleanTab { app: screens.app; focus: true }
    }
    readonly property Component apps: Component {
        EmptyTab { tab: 1 }
    }
    readonly property Component optimize: Component {
        EmptyTab { tab: 2 }
    }
    readonly property Component analyze: Component {
        AnalyzeView {
            analyze: screens.app.analyze
            show: screens.app.show
            motion: screens.app.motion
            preferences: screens.app.preferences
            focus: true
        }
    }
    readonly property Component status: Component {
        StatusView {
            status: screens.app.status
            motion: screens.app.motion
            preferences: screens.app.preferences
            lacksFullDiskAccess: screens.app.asksForFullDiskAccess && !screens.app.hasFullDiskAccess
            focus: true
            onFullDiskAccessRequested: screens.app.readFullDiskAccess()
        }
    }
}
