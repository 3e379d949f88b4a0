import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls

// The sections of the settings, one below the other; arrow keys go from one to the next.
FocusScope {
    id: list

    required property list<string> titles
    required property int section

    signal chosen(int index)

    implicitHeight: column.implicitHeight
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Sections")

    function choose(index: int): void {
        const wanted = Math.max(0, Math.min(index, titles.length - 1))
        list.chosen(wanted)
        buttons.itemAt(wanted).forceActiveFocus(Qt.TabFocusReason)
    }

    Column {
        id: column

        width: parent.width
        spacing: 2

        Repeater {
            id: buttons

            model: list.titles

            T.AbstractButton {
                id: button

                required property int index
                required property string modelData
                readonly property bool isSelected: list.section === index

                width: column.width
                height: 34
                text: modelData
                hoverEnabled: true
                focusPolicy: isSelected || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                focus: isSelected
                Accessible.role: Accessible.PageTab
                Accessible.name: text
                Accessible.selectable: true
                Accessible.selected: isSelected
                onClicked: list.chosen(index)
                Keys.onUpPressed: list.choose(index - 1)
                Keys.onDownPressed: list.choose(index + 1)

                background: Rectangle {
                    radius: Theme.radiusSmall + 2
                    color: button.isSelected ? Theme.cardHover : button.hovered ? Theme.card : "transparent"

                    FocusRing {
                        shown: button.visualFocus
                        gap: 0
                        radius: Theme.radiusSmall + 2
                    }
                }
                contentItem: Label {
                    leftPadding: 12
                    text: button.text
                    size: 13
                    verticalAlignment: Text.AlignVCenter
                    color: button.isSelected ? Theme.text : Theme.secondary
                    Accessible.ignored: true
                }
            }
        }
    }
}
