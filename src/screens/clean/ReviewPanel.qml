import QtQuick
import Tavrel.Controls
import Tavrel.Models

// Everything that was found, to look through before it goes.
FocusScope {
    id: panel

    required property MotionPause motion
    required property Preferences preferences
    required property CleanListModel model
    required property string title
    required property string subtitle
    required property string actionTitle
    required property bool open

    signal closed

    visible: opacity > 0
    opacity: open ? 1 : 0
    scale: open ? 1 : 0.96
    enabled: open
    onOpenChanged: if (open) list.forceActiveFocus(Qt.TabFocusReason)
    Keys.onEscapePressed: panel.closed()
    Accessible.role: Accessible.Pane
    Accessible.name: title

    Behavior on opacity { NumberAnimation { duration: Theme.moderate } }
    Behavior on scale { NumberAnimation { duration: Theme.spring; easing.type: Easing.OutBack; easing.overshoot: 0.9 } }

    MouseArea { anchors.fill: parent } // nothing below is reached

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        anchors.bottomMargin: Theme.gapLarge
        radius: Theme.radius + 4
        color: Theme.ink
        border.width: 1
        border.color: Theme.stroke

        Item {
            id: header

            width: parent.width
            height: 68

            Column {
                anchors.verticalCenter: parent.verticalCenter
                anchors.left: parent.left
                anchors.leftMargin: 20
                anchors.right: close.left
                anchors.rightMargin: 12
                spacing: 3

                Label {
                    width: parent.width
                    text: panel.title
                    size: Theme.fontHeading
                    font.weight: Font.DemiBold
                    Accessible.role: Accessible.Heading
                }
                Label {
                    width: parent.width
                    text: panel.subtitle
                    size: Theme.fontBody
                    color: Theme.secondary
                }
            }
            IconButton {
                id: close

                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: 16
                symbol: "xmark"
                text: qsTr("Close")
                onClicked: panel.closed()
            }
        }

        ReviewList {
            id: list

            anchors.top: header.bottom
            anchors.bottom: footer.top
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: 16
            anchors.rightMargin: 16
            focus: true
            motion: panel.motion
            source: panel.model
        }

        Item {
            id: footer

            anchors.bottom: parent.bottom
            width: parent.width
            height: 64

            Rectangle {
                width: parent.width
                height: 1
                color: Theme.stroke
            }
            Row {
                anchors.verticalCenter: parent.verticalCenter
                anchors.left: parent.left
                anchors.leftMargin: 20
                spacing: 12

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("%1 selected").arg(panel.model.selectedCount)
                    font.weight: Font.Medium
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: panel.model.selectedSizeText
                    color: Theme.secondary
                }
                Chip {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: panel.preferences.dryRun
                    text: qsTr("Preview mode")
                    colour: Theme.review
                }
            }
            PillButton {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: 16
                text: qsTr("%1 · %2").arg(panel.preferences.dryRun ? qsTr("Preview") : panel.actionTitle)
                                     .arg(panel.model.selectedSizeText)
                busy: panel.model.stage === CleanListModel.Stage.Cleaning
                enabled: panel.model.selectedCount > 0 && !panel.model.working
                onClicked: panel.model.clean()
            }
        }
    }
}
