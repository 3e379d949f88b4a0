import QtQuick
import Tavrel.Controls
import Tavrel.Models

// The record of what was removed, as a sheet.
Dialog {
    id: sheet

    required property HistoryModel entries
    required property MotionPause motion

    padding: 0
    width: Math.min(640, parent ? parent.width - 80 : 640)
    height: Math.min(520, parent ? parent.height - 80 : 520)
    onAboutToShow: entries.load()
    onOpened: done.forceActiveFocus(Qt.TabFocusReason)

    contentItem: Item {
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Cleaning history")

        Item {
            id: header

            width: parent.width
            height: 64

            Label {
                anchors.verticalCenter: parent.verticalCenter
                x: 22
                text: qsTr("Cleaning history")
                size: Theme.fontHeading
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            Row {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: 18
                spacing: Theme.gap

                PillButton {
                    text: qsTr("Clear")
                    kind: PillButton.Kind.Secondary
                    visible: sheet.entries.count > 0
                    onClicked: sheet.entries.clear()
                }
                PillButton {
                    id: done

                    text: qsTr("Done")
                    onClicked: sheet.close()
                }
            }
        }
        Rectangle {
            anchors.top: header.bottom
            width: parent.width
            height: 1
            color: Theme.stroke
        }
        Label {
            anchors.centerIn: parent
            visible: sheet.entries.count === 0
            text: qsTr("Nothing cleaned yet.")
            size: Theme.fontSubtitle
            color: Theme.secondary
        }
        ScrollList {
            id: list

            anchors.fill: parent
            anchors.topMargin: header.height + 1
            anchors.leftMargin: 14
            anchors.rightMargin: 14
            spacing: 6
            topMargin: 12
            bottomMargin: 12
            activeFocusOnTab: false
            reuseItems: false  // a row remembers whether it is expanded
            motion: sheet.motion
            model: sheet.entries
            delegate: HistoryRow {
                width: list.width
                locked: sheet.entries.restoring
                onPutBack: sheet.entries.putBack(index)
            }
            Accessible.name: qsTr("Cleaning history")
        }
    }
}
