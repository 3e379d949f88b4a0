import QtQuick

// Text in the program's letters, read out as it stands.
Text {
    property real size: Theme.fontBody

    font.family: Theme.fontFamily
    font.pixelSize: size
    color: Theme.text
    elide: Text.ElideRight
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
