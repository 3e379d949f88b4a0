import QtQuick
import Tavrel.Controls

// Stands where a tab has nothing to show yet.
Item {
    id: empty

    required property int tab
    readonly property list<string> symbols: [
        "trash", "square.grid.2x2", "wrench.and.screwdriver", "chart.pie", "waveform.path.ecg"
    ]
    readonly property list<string> purposes: [
        "",
        qsTr("Uninstall applications with everything they left, update them, and see what starts by itself."),
        qsTr("Run the repairs that a computer needs now and then.")
    ]

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 80, 420)
        spacing: 14

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 96
            height: 96
            radius: 48
            color: Theme.faded(Theme.glows[empty.tab], 0.1)
            border.width: 1
            border.color: Theme.faded(Theme.glows[empty.tab], 0.3)

            Symbol {
                anchors.centerIn: parent
                name: empty.symbols[empty.tab]
                size: 42
                color: Theme.glows[empty.tab]
            }
        }
        Label {
            width: parent.width
            text: qsTr("Not here yet")
            size: Theme.fontHeading
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
        }
        Label {
            width: parent.width
            text: empty.purposes[empty.tab]
            size: Theme.fontSubtitle
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}
