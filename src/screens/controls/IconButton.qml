import QtQuick
import QtQuick.Templates as T

// A symbol to press; its text is read out, and shown when the pointer rests on it.
T.AbstractButton {
    id: control

    required property string symbol
    property real symbolSize: 17
    property bool checkedLook: false

    implicitWidth: 30
    implicitHeight: 30
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.35
    Accessible.name: text

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    background: Rectangle {
        radius: Theme.radiusSmall
        color: control.hovered || control.checkedLook ? Theme.cardHover : "transparent"

        FocusRing { shown: control.visualFocus }
    }
    contentItem: Symbol {
        name: control.symbol
        size: control.symbolSize
        color: control.hovered || control.checkedLook ? Theme.text : Theme.secondary
    }

    Tip { text: control.text; shown: control.hovered || control.visualFocus }
}
