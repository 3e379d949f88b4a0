import QtQuick
import QtQuick.Templates as T

// A whole number with two buttons; arrow keys step it, page keys by ten.
T.SpinBox {
    id: control

    required property string suffix
    property string name
    readonly property string shown: value + suffix

    implicitWidth: 148
    implicitHeight: 30
    leftPadding: 34
    rightPadding: 34
    focusPolicy: Qt.StrongFocus
    Accessible.name: name
    Accessible.description: shown

    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown) return
        const up = event.key === Qt.Key_PageUp
        // Not by an assignment, which would end what the value is bound to.
        for (let i = 0; i < 10; ++i) up ? increase() : decrease()
        valueModified()
        event.accepted = true
    }

    contentItem: Label {
        text: control.shown
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    up.indicator: Item {
        x: control.width - width
        width: 34
        height: control.height
        opacity: enabled ? 1 : 0.35

        Symbol { anchors.centerIn: parent; name: "plus"; color: control.up.hovered ? Theme.text : Theme.secondary }
    }
    down.indicator: Item {
        width: 34
        height: control.height
        opacity: enabled ? 1 : 0.35

        Symbol { anchors.centerIn: parent; name: "minus"; color: control.down.hovered ? Theme.text : Theme.secondary }
    }
    background: Rectangle {
        radius: height / 2
        color: Theme.card
        border.width: 1
        border.color: Theme.stroke

        FocusRing {
            shown: control.visualFocus
            radius: height / 2
        }
    }
}
