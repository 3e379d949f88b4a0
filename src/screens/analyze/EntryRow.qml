import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// What rows of entries share: the box that marks, the icon, the button that trashes, the lock of a protected entry and
// the menu. Derived rows put their own texts into `columns`, the space to the right of the icon.
T.AbstractButton {
    id: row

    required property int index
    required property url url
    required property string name
    required property string sizeText
    required property bool selected
    required property bool removable
    required property string reason
    required property ShowState show
    required property EntryMenu menu
    property bool current: false
    property bool walkedTo: false  // by keyboard
    property bool clickMarks: false  // otherwise a click opens
    property int iconSize: 18
    property bool folderIcon: false
    property real rightColumns: 0  // width of the columns to the right of the button
    property string description  // for screen readers, after the name
    property color fill: hovered ? Theme.card : "transparent"
    property alias columns: columns.data
    readonly property string protectedText: qsTr("Protected — Tavrel won't remove this")

    signal opened(entry: url)
    signal toggled(entry: url)
    signal trashed(entry: url)

    // The entry that was there when the press began: the row may show another when it ends.
    property url meant: url
    function press(): void { meant = url }
    function release(): url {
        const entry = meant
        meant = Qt.binding(() => url)
        return entry
    }

    text: name
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + description + (reason === "" ? "" : ", " + protectedText + ", " + reason)
    Accessible.selected: selected
    onPressed: row.press()
    onCanceled: row.release()
    onClicked: clickMarks ? row.toggled(row.release()) : row.opened(row.release())
    Keys.onPressed: event => event.accepted = row.menu.takes(event, row.url, row.removable, row)

    background: Rectangle {
        radius: Theme.radiusSmall
        color: row.fill

        FocusRing { shown: row.current; gap: 0 }
    }
    contentItem: Item {
        opacity: row.removable || row.reason === "" ? 1 : 0.6

        // What goes past the box, or onto one that is disabled, opens nothing.
        MouseArea {
            anchors.fill: check
            anchors.margins: -6
            enabled: !row.clickMarks
        }
        CheckBox {
            id: check

            anchors.verticalCenter: parent.verticalCenter
            x: 6
            text: qsTr("Select %1").arg(row.name)
            focusPolicy: Qt.NoFocus
            enabled: row.removable
            opacity: enabled ? 1 : 0.3
            mark: row.selected ? CheckBox.Mark.On : CheckBox.Mark.Off
            colour: Theme.glows[3]
            onPressed: row.press()
            onCanceled: row.release()
            onClicked: row.toggled(row.release())
        }
        FileIcon {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            anchors.left: check.right
            anchors.leftMargin: 9
            width: row.iconSize
            height: row.iconSize
            show: row.show
            file: row.url
            folder: row.folderIcon
        }
        Item {
            id: columns

            anchors.left: icon.right
            anchors.right: parent.right
            height: parent.height
        }
        IconButton {
            id: trash

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: row.rightColumns
            width: 24
            height: 24
            symbolSize: 14
            focusPolicy: Qt.NoFocus
            visible: row.removable && row.hovered
            symbol: "trash"
            text: qsTr("Move to Trash")
            onPressed: row.press()
            onCanceled: row.release()
            onClicked: row.trashed(row.release())
        }
        Symbol {
            anchors.centerIn: trash
            visible: row.reason !== ""
            name: "lock"
            size: 12
            color: Theme.tertiary
        }
    }

    MenuRequest {
        anchors.fill: parent
        onAsked: row.menu.show(row.url, row.removable)
    }
    Tip {
        text: row.protectedText + "\n" + row.reason
        shown: (row.hovered || row.walkedTo) && row.reason !== ""
    }
}
