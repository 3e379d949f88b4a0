import QtQuick
import QtQuick.Templates as T

// A capsule with a text: filled where it stands for the thing to do, outlined for everything beside it.
T.AbstractButton {
    id: control

    enum Kind { Primary, Secondary, Danger }

    property int kind: PillButton.Kind.Primary
    property color colour: Theme.glows[0]
    property bool busy: false
    property string symbol  // before the text; empty for none
    readonly property color fillColour: kind === PillButton.Kind.Danger ? Theme.danger : colour
    readonly property bool filled: kind !== PillButton.Kind.Secondary

    implicitWidth: contentItem.implicitWidth + 44
    implicitHeight: 36
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.35
    scale: down ? 0.97 : 1
    Accessible.name: text

    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    Behavior on scale { NumberAnimation { duration: Theme.quick } }

    background: Rectangle {
        radius: height / 2
        color: control.filled
               ? Theme.faded(control.fillColour, control.down ? 0.75 : control.hovered ? 1 : 0.92)
               : Qt.rgba(1, 1, 1, control.hovered ? 0.12 : 0.1)
        border.width: control.filled ? 0 : 1
        border.color: Theme.stroke

        FocusRing {
            shown: control.visualFocus
            gap: 3
            radius: height / 2
        }
    }

    contentItem: Item {
        implicitWidth: content.implicitWidth
        implicitHeight: content.implicitHeight

        Row {
            id: content

            anchors.centerIn: parent
            spacing: Theme.gap

            Spinner {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.busy
                colour: label.color
            }
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.symbol !== "" && !control.busy
                name: control.symbol
                size: 15
                color: label.color
            }
            Label {
                id: label

                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                size: 13
                font.weight: Font.DemiBold
                color: control.filled ? Theme.ink : Theme.text
                Accessible.ignored: true
            }
        }
    }
}
