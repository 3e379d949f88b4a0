import QtQuick
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Status

// Who uses the machine most; pinned processes stay at the top.
Card {
    id: card

    required property Monitor monitor
    required property Preferences preferences

    implicitHeight: column.implicitHeight + 26
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Processes")

    Column {
        id: column

        x: 14
        y: 12
        width: parent.width - 28
        spacing: 6

        Item {
            width: parent.width
            height: 30

            CardLabel {
                anchors.verticalCenter: parent.verticalCenter
                symbol: "list.bullet.rectangle"
                title: qsTr("Processes")
            }
            SubTabs {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                titles: [qsTr("CPU"), qsTr("Memory"), qsTr("Energy")]
                selection: rows.sort
                colour: Theme.glows[4]
                onChosen: index => rows.sort = index
                Accessible.name: qsTr("Sorted by")
            }
        }
        Item {
            width: parent.width
            height: 16

            component Heading: Label {
                size: Theme.fontTiny
                color: Theme.tertiary
                horizontalAlignment: Text.AlignRight
            }

            Heading { x: 32; text: qsTr("NAME") }
            Heading { anchors.right: parent.right; anchors.rightMargin: 172; text: qsTr("CPU") }
            Heading { anchors.right: parent.right; anchors.rightMargin: 76; text: qsTr("MEMORY") }
            Heading { anchors.right: parent.right; text: qsTr("IMPACT") }
        }
        Label {
            visible: rows.count === 0
            height: 60
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: card.monitor.hasSeenProcesses ? qsTr("Nothing here")
                                                    : qsTr("Looking at what runs…")
            color: Theme.secondary
        }
        Repeater {
            id: list

            model: ProcessRows {
                id: rows

                monitor: card.monitor
                preferences: card.preferences
            }

            ProcessRow {
                width: column.width
                explaining: rows.explained === index
                powerNote: rows.powerNote
                onPinToggled: card.preferences.togglePinned(name)
                onExplanationToggled: rows.explained = explaining ? -1 : index
            }
        }
    }
    Explanation {
        readonly property ProcessRow row: rows.explained < 0 ? null : list.itemAt(rows.explained) as ProcessRow

        parent: row ? row.infoButton : card
        text: row ? row.explanation : ""
        visible: row !== null
        onClosed: rows.explained = -1
    }
}
