import QtQuick
import Tavrel.Controls
import Tavrel.Analyze
import Tavrel.Graphs

// One entry of the folder: its name, and how much of the folder it is.
EntryRow {
    id: row

    required property string filesText
    required property real share
    required property string percentText
    required property int colorIndex
    required property bool isFolder
    required property bool measured
    required property bool lit
    property bool compact: false  // without the bar
    readonly property color colour: OrbitPalette.colour(colorIndex)

    implicitHeight: 30
    folderIcon: isFolder
    rightColumns: compact ? 174 : 222
    fill: lit ? Theme.faded(colour, 0.14) : hovered ? Theme.card : "transparent"
    description: measured ? sizeText + ", " + percentText + " %, " + filesText : qsTr("being measured")
    onDoubleClicked: row.release()  // the second click would open what the first has brought here

    columns: [
        Label {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            x: 7
            width: Math.min(implicitWidth, size.x - x - 44)
            text: row.name
            elide: Text.ElideMiddle
            Accessible.ignored: true
        },
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: label.right
            anchors.leftMargin: 2
            visible: row.isFolder
            name: "chevron.right"
            size: 14
            color: Theme.tertiary
        },
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
        },
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
        },
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
    ]
}
