import QtQuick
import QtQuick.Templates as T

// A small square that is on, off or in between. It shows the state that it is given and asks for a change.
T.AbstractButton {
    id: control

    enum Mark { Off, Mixed, On }

    required property int mark
    property color colour: Theme.glows[0]

    implicitWidth: 15
    implicitHeight: 15
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: mark === CheckBox.Mark.On
    Accessible.checkStateMixed: mark === CheckBox.Mark.Mixed

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: 4
        color: control.mark === CheckBox.Mark.Off ? "transparent" : control.colour
        border.width: 1.2
        border.color: control.mark === CheckBox.Mark.Off
                      ? (control.hovered ? Theme.secondary : Theme.tertiary) : control.colour

        FocusRing { shown: control.visualFocus }
    }
    contentItem: Symbol {
        visible: control.mark !== CheckBox.Mark.Off
        name: control.mark === CheckBox.Mark.Mixed ? "minus" : "checkmark"
        size: 12
        color: Theme.ink
    }
}
