import QtQuick
import Tavrel.Controls
import Tavrel.Models

// Empties the Trash after asking, and then says how much that was.
Item {
    id: place

    required property TrashEmptier emptier

    implicitWidth: emptier.emptied ? done.implicitWidth : button.implicitWidth
    implicitHeight: 36
    onVisibleChanged: if (visible && emptier.emptied) emptier.forget()

    PillButton {
        id: button

        text: qsTr("Empty Trash")
        kind: PillButton.Kind.Secondary
        visible: !place.emptier.emptied
        enabled: !place.emptier.working
        busy: place.emptier.working
        onClicked: question.open()
    }
    Label {
        id: done

        anchors.verticalCenter: parent.verticalCenter
        visible: place.emptier.emptied
        text: place.emptier.emptiedText
        size: 12.5
        color: Theme.secondary
    }
    ConfirmDialog {
        id: question

        title: qsTr("Empty the Trash?")
        message: qsTr("Everything in the Trash is deleted for good, including files you put there yourself.")
        action: qsTr("Empty Trash")
        onConfirmed: place.emptier.empty()
    }
}
