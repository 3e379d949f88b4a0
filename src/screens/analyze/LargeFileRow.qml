import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// One large file: its name, where it lies, and its size.
T.AbstractButton {
    id: row

    required property int index
    required property url url
    required property string name
    required property string folderPath
    required property string sizeText
    required property bool selected
    required property bool removable
    required property string reason
    required property ShowState show
    property bool current: false
    property bool walkedTo: false  // by keyboard
    readonly property string protectedText: qsTr("Protected — Tavrel won't remove this")

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
    implicitHeight: 46
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + sizeText + ", " + folderPath + (reason === "" ? "" : ", " + protectedText + ", " + reason)
    Accessible.selected: selected
    onPressed: row.press()
    onCanceled: row.release()
    onClicked: row.toggled(row.release())

    background: Rectangle {
        radius: Theme.radiusSmall
        color: row.hovered ? Theme.card : "transparent"

        FocusRing { shown: row.current; gap: 0 }
    }
    contentItem: Item {
        opacity: row.reason === "" ? 1 : 0.6

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
            width: 20
            height: 20
            show: row.show
            file: row.url
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: icon.right
            anchors.leftMargin: 9
            anchors.right: trash.left
            anchors.rightMargin: 8
            spacing: 2

            Label {
                width: parent.width
                text: row.name
                size: 12.5
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            Label {
                width: parent.width
                text: row.folderPath
                size: 11.5
                color: Theme.secondary
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
        }
        IconButton {
            id: trash

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: size.left
            width: 26
            height: 26
            symbolSize: 15
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
            size: 13
            color: Theme.tertiary
        }
        Label {
            id: size

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 8
            width: 84
            horizontalAlignment: Text.AlignRight
            text: row.sizeText
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    Tip {
        text: row.protectedText + "\n" + row.reason
        shown: (row.hovered || row.walkedTo) && row.reason !== ""
    }
}
