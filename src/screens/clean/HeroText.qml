import QtQuick
import Tavrel.Controls

// Title and subtitle under the hole.
Column {
    id: hero

    required property string title
    required property string subtitle

    spacing: 6

    Label {
        width: parent.width
        text: hero.title
        size: Theme.fontTitle
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.Heading
    }
    Label {
        width: parent.width
        text: hero.subtitle
        size: Theme.fontSubtitle
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 2
    }
}
