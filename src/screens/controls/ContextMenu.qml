import QtQuick
import QtQuick.Templates as T

// A small menu at the pointer.
T.Menu {
    id: menu

    implicitWidth: 180
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    padding: 5
    overlap: 0

    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        interactive: false
        currentIndex: menu.currentIndex
    }
    background: Rectangle {
        radius: Theme.radiusSmall + 3
        color: Qt.lighter(Theme.ink, 1.3)
        border.width: 1
        border.color: Theme.stroke
    }
}
