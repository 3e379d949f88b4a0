import QtQuick
import Tavrel.Controls
import Tavrel.Models

// How the program starts, removes and sounds.
SettingsPage {
    id: page

    required property AppState app
    readonly property Preferences preferences: app.preferences

    Component.onCompleted: app.readFullDiskAccess()

    Card {
        width: parent.width
        height: rows.implicitHeight

        Column {
            id: rows

            width: parent.width

            SettingRow {
                title: qsTr("Open at login")
                detail: qsTr("Tavrel starts in the menu bar when you log in, without opening its window.")

                ToggleSwitch {
                    text: qsTr("Open at login")
                    checked: page.app.loginItem.enabled
                    onToggled: {
                        page.app.loginItem.enabled = checked
                        checked = Qt.binding(() => page.app.loginItem.enabled)
                    }
                }
            }
            SettingRow {
                title: qsTr("Preview mode")
                detail: qsTr("Scans run as usual, but nothing is deleted. Useful to see what Tavrel would free.")

                ToggleSwitch {
                    text: qsTr("Preview mode")
                    checked: page.preferences.dryRun
                    onToggled: page.preferences.dryRun = checked
                }
            }
            SettingRow {
                title: qsTr("Always use the Trash")
                detail: page.preferences.alwaysTrash
                        ? qsTr("Everything Tavrel removes goes to the Trash, so you can put it back.")
                        : qsTr("Caches and build files are deleted right away to free space now. Anything you might want goes to the Trash.")

                ToggleSwitch {
                    text: qsTr("Always use the Trash")
                    checked: page.preferences.alwaysTrash
                    onToggled: page.preferences.alwaysTrash = checked
                }
            }
            SettingRow {
                title: qsTr("Sound")
                detail: qsTr("A soft, spacey sound when a clean is done.")

                ToggleSwitch {
                    text: qsTr("Sound")
                    checked: page.preferences.sounds
                    onToggled: page.preferences.sounds = checked
                }
            }
            SettingRow {
                title: qsTr("Old projects")
                detail: qsTr("Projects untouched for this long have their build files selected automatically.")
                isLast: !page.app.asksForFullDiskAccess

                Stepper {
                    name: qsTr("Old projects")
                    from: 1
                    to: 365
                    value: page.preferences.staleProjectDays
                    suffix: qsTr(" days")
                    onValueModified: page.preferences.staleProjectDays = value
                }
            }
            SettingRow {
                visible: page.app.asksForFullDiskAccess
                title: qsTr("Full Disk Access")
                detail: page.app.hasFullDiskAccess
                        ? qsTr("On — Tavrel can see Mail, Safari and the Trash.")
                        : qsTr("Off — macOS hides Mail, Safari and the Trash from Tavrel.")
                isLast: true

                PillButton {
                    visible: !page.app.hasFullDiskAccess
                    text: qsTr("Open Settings")
                    kind: PillButton.Kind.Secondary
                    onClicked: Desktop.openFullDiskAccessSettings()
                }
            }
        }
    }
}
