import QtQuick

// A large value with its unit on one baseline. A value that is too wide for `maximumWidth` gets smaller.
Row {
    id: row

    required property string value
    property string unit
    property alias size: valueLabel.size
    property alias weight: valueLabel.font.weight
    property real maximumWidth: Infinity
    property alias label: valueLabel  // for the baseline of what else stands in the row

    spacing: 5

    Label {
        id: valueLabel

        width: Math.min(implicitWidth, row.maximumWidth - (row.unit === "" ? 0 : unitLabel.width + row.spacing))
        text: row.value
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 14
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }
    Label {
        id: unitLabel

        anchors.baseline: valueLabel.baseline
        text: row.unit
        size: Theme.fontSubtitle
        color: Theme.secondary
        Accessible.ignored: true
    }
}
