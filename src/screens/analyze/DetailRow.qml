import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze
import Tavrel.Graphs

// One thing in the folder: marked or not, its name, and how much of the folder it is.
T.AbstractButton {
    id: row

    required property int index
    required property url url
    required property string name
    required property string sizeText
    required property string filesText
    required property real share
    required property string percentText
    required property int colorIndex
    required property bool isFolder
    required property bool measured
    required property bool selected
    required property bool removable
    required property string reason
    required property bool lit
    required property ShowState show
    property bool current: false
    property bool walkedTo: false  // by keyboard
    property bool compact: false  // without the bar
    readonly property color colour: OrbitPalette.colour(colorIndex)

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
    implicitHeight: 30
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + (measured ? sizeText + ", " + percentText + " %, " + filesText : qsTr("being measured")) + (reason === "" ? "" : ", " + protectedText + ", " + reason)
    Accessible.selected: selected
    onPressed: row.press()
    onCanceled: row.release()
    onClicked: row.opened(row.release())
    onDoubleClicked: row.release()  // the second click would open what the first has brought here
    readonly property string protectedText: qsTr("Protected — Tavrel won't remove this")

    background: Rectangle {
        radius: Theme.radiusSmall
        color: row.lit ? Theme.faded(row.colour, 0.14) : row.hovered ? Theme.card : "transparent"

        FocusRing { shown: row.current; gap: 0 }
    }
    contentItem: Item {
        opacity: row.removable || row.reason === "" ? 1 : 0.6

        // What goes past the box, or onto one that is disabled, opens nothing.
        MouseArea {
            anchors.fill: check
            anchors.margins: -6
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
            width: 18
            height: 18
            show: row.show
            file: row.url
        }
        Label {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            anchors.left: icon.right
            anchors.leftMargin: 7
            width: Math.min(implicitWidth, size.x - x - 44)
            text: row.name
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: label.right
            anchors.leftMargin: 2
            visible: row.isFolder
            name: "chevron.right"
            size: 14
            color: Theme.tertiary
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: size.left
            anchors.rightMargin: 6
            visible: row.reason !== ""
            name: "lock"
            size: 12
            color: Theme.tertiary
        }
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: size.left
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
        Item {
            id: size

            anchors.right: bar.left
            width: 72
            height: parent.height

            Label {
                anchors.fill: parent
                anchors.rightMargin: 4
                horizontalAlignment: Text.AlignRight
                verticalAlignment: Text.AlignVCenter
                visible: row.measured
                text: row.sizeText
                Accessible.ignored: true
            }
            Spinner {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: 6
                visible: !row.measured
            }
        }
        Item {
            id: bar

            anchors.right: files.left
            width: row.compact ? 44 : 92
            height: parent.height

            Meter {
                anchors.verticalCenter: parent.verticalCenter
                x: 10
                width: 44
                height: 5
                visible: row.measured && !row.compact
                colour: row.colour
                fraction: row.share
            }
            Label {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                text: row.percentText === "" ? "" : row.percentText + " %"
                size: Theme.fontSmall
                color: Theme.secondary
                Accessible.ignored: true
            }
        }
        Label {
            id: files

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 6
            width: 52
            horizontalAlignment: Text.AlignRight
            text: row.filesText
            size: Theme.fontSmall
            color: Theme.secondary
            Accessible.ignored: true
        }
    }

    Tip {
        text: row.protectedText + (row.reason === "" ? "" : "\n" + row.reason)
        shown: (row.hovered || row.walkedTo) && row.reason !== ""
    }
}
