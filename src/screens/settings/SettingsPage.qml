import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls

// A section's heading, a sentence on it, and what it holds, scrolling where the window is low.
Flickable {
    id: page

    property string heading
    property string explanation
    default property alias content: column.data

    contentHeight: column.implicitHeight
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    T.ScrollBar.vertical: SlimScrollBar {}

    Column {
        id: column

        width: page.width
        spacing: 12

        Column {
            width: parent.width
            spacing: 4
            visible: page.heading !== ""
            bottomPadding: 4

            Label {
                width: parent.width
                text: page.heading
                size: Theme.fontHeading
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            Label {
                width: parent.width
                text: page.explanation
                size: Theme.fontBody
                color: Theme.secondary
                wrapMode: Text.Wrap
            }
        }
    }
}
