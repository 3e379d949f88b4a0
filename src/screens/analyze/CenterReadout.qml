import QtQuick
import Tavrel.Controls

// The figures in the dark of the chart, each as large as fits.
Column {
    id: readout

    required property real side
    property string icon
    property string name
    property string size
    property string detail

    width: side
    spacing: side * 0.03
    Accessible.role: Accessible.StaticText
    Accessible.name: name + ", " + size + ", " + detail

    component Line: Label {
        required property real shrink

        width: readout.side
        minimumPixelSize: Math.max(1, Math.round(size * shrink))
        fontSizeMode: Text.HorizontalFit
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideMiddle
        maximumLineCount: 1
        visible: text !== ""
        Accessible.ignored: true
    }

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: readout.icon
        size: Math.max(12, readout.side * 0.15)
        color: Theme.secondary
        visible: readout.icon !== ""
    }
    Line {
        text: readout.name
        size: Math.max(9, readout.side * 0.11)
        shrink: 0.6
        color: Theme.text
        font.weight: Font.Medium
    }
    Line {
        text: readout.size
        size: Math.max(12, readout.side * 0.17)
        shrink: 0.6
        font.weight: Font.DemiBold
    }
    Line {
        text: readout.detail
        size: Math.max(8, readout.side * 0.08)
        shrink: 0.7
        color: Theme.secondary
    }
}
