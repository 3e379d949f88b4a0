import QtQuick

// Asks before something that cannot be undone. Esc and the first button mean no.
Dialog {
    id: dialog

    required property string title
    required property string message
    required property string action

    signal confirmed

    onOpened: cancel.forceActiveFocus(Qt.TabFocusReason)

    contentItem: Column {
        width: 380
        spacing: Theme.gapLarge
        Accessible.role: Accessible.AlertMessage
        Accessible.name: dialog.title
        Accessible.description: dialog.message

        Label {
            width: parent.width
            text: dialog.title
            size: Theme.fontHeading
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        Label {
            width: parent.width
            text: dialog.message
            size: Theme.fontSubtitle
            color: Theme.secondary
            wrapMode: Text.Wrap
            lineHeight: 1.25
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.gap

            PillButton {
                id: cancel

                text: qsTr("Cancel")
                kind: PillButton.Kind.Secondary
                onClicked: dialog.close()
            }
            PillButton {
                text: dialog.action
                kind: PillButton.Kind.Danger
                onClicked: {
                    dialog.close()
                    dialog.confirmed()
                }
            }
        }
    }
}
