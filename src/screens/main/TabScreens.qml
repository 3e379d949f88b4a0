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
        if (identity === "settings") return settings
        return ({ "0": clean, "3": analyze, "4": status })[identity] ?? later
    }

    readonly property Component settings: Component {
        SettingsView { app: screens.app; focus: true }
    }
    readonly property Component clean: Component {
        CleanTab { app: screens.app; focus: true }
    }
    readonly property Component analyze: Component {
        AnalyzeView { app: screens.app; focus: true }
    }
    readonly property Component status: Component {
        StatusView { app: screens.app; focus: true }
    }
    readonly property Component later: Component {
        EmptyTab { tab: screens.app.tab }
    }
}
