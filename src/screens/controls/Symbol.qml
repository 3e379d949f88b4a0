import QtQuick
import Tavrel.Controls

// A symbol by our name for it.
Text {
    required property string name
    property real size: 15

    text: Symbols.glyph(name)
    font.family: Theme.symbolFamily
    font.pixelSize: size
    color: Theme.text
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    renderType: Text.NativeRendering
    Accessible.ignored: true
}
