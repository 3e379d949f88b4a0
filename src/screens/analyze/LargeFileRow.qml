import QtQuick
import Tavrel.Controls
import Tavrel.Analyze

// One large file: its name, where it lies, and its size.
EntryRow {
    id: row

    required property string folderPath

    implicitHeight: 46
    iconSize: 20
    rightColumns: 92
    clickMarks: true
    description: sizeText + ", " + folderPath

    columns: [
        Column {
            anchors.verticalCenter: parent.verticalCenter
            x: 9
            width: parent.width - x - row.rightColumns - 32
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
        },
        Label {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 8
            width: 84
            horizontalAlignment: Text.AlignRight
            text: row.sizeText
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    ]
}
