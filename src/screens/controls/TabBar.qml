import QtQuick
import QtQuick.Templates as T

// A row of tabs with a highlight that moves between them; arrow keys go from tab to tab.
FocusScope {
    id: bar

    required property var titles
    required property int selection
    property list<bool> busy: []
    property bool showsSelection: true
    property color colour: Theme.glows[0]
    property real size: Theme.fontBody
    property real paddingAcross: 16
    property real paddingAlong: 7
    property real strokeWidth: 1

    signal chosen(int index)

    implicitWidth: row.implicitWidth + 6
    implicitHeight: row.implicitHeight + 6
    Accessible.role: Accessible.PageTabList

    function choose(index: int): void {
        const wanted = Math.max(0, Math.min(index, titles.length - 1))
        bar.chosen(wanted)
        buttons.itemAt(wanted).forceActiveFocus(Qt.TabFocusReason)
    }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.card
        border.width: bar.strokeWidth
        border.color: Theme.stroke
    }

    Rectangle {
        id: highlight

        readonly property Item target: buttons.count > bar.selection ? buttons.itemAt(bar.selection) : null

        visible: bar.showsSelection && target !== null
        x: target ? row.x + target.x : 0
        y: row.y
        width: target ? target.width : 0
        height: row.height
        radius: height / 2
        color: Theme.faded(bar.colour, 0.2)
        border.width: 1
        border.color: Theme.faded(bar.colour, 0.35)

        Behavior on x { NumberAnimation { duration: Theme.moderate; easing.type: Easing.OutCubic } }
        Behavior on width { NumberAnimation { duration: Theme.moderate; easing.type: Easing.OutCubic } }
    }

    Row {
        id: row

        anchors.centerIn: parent

        Repeater {
            id: buttons

            model: bar.titles

            T.AbstractButton {
                id: button

                required property int index
                required property string modelData
                readonly property bool isSelected: bar.showsSelection && bar.selection === index

                text: modelData
                implicitWidth: label.implicitWidth + 2 * bar.paddingAcross
                implicitHeight: label.implicitHeight + 2 * bar.paddingAlong
                hoverEnabled: true
                focusPolicy: bar.selection === index || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                focus: bar.selection === index
                Accessible.role: Accessible.PageTab
                Accessible.name: text
                Accessible.selectable: true
                Accessible.selected: isSelected

                onClicked: bar.chosen(index)
                Keys.onLeftPressed: bar.choose(index - 1)
                Keys.onRightPressed: bar.choose(index + 1)
                Keys.onReturnPressed: bar.chosen(index)

                background: Item {
                    FocusRing {
                        shown: button.visualFocus
                        gap: 0
                        radius: height / 2
                    }
                }
                contentItem: Item {
                    Label {
                        id: label

                        anchors.centerIn: parent
                        text: button.text
                        size: bar.size
                        font.weight: Font.Medium
                        color: button.isSelected || button.hovered ? Theme.text : Theme.secondary
                        Accessible.ignored: true
                    }
                    BusyDot {
                        anchors.verticalCenter: parent.verticalCenter
                        anchors.left: label.right
                        anchors.leftMargin: 4
                        visible: bar.busy.length > button.index && bar.busy[button.index]
                        colour: bar.colour
                    }
                }
            }
        }
    }
}
