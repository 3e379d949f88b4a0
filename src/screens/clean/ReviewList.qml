import QtQuick
import Tavrel.Controls
import Tavrel.Models

// The categories as cards, with their items below those that are opened. Arrow keys walk the rows, the space
// bar ticks, left and right close and open.
ScrollList {
    id: list

    required property CleanListModel source

    objectName: "reviewList"
    Accessible.name: qsTr("Found items")

    Keys.onSpacePressed: rows.toggle(currentIndex)
    Keys.onReturnPressed: rows.toggleExpanded(currentIndex)
    Keys.onRightPressed: if (currentItem && !(currentItem as ReviewRow).expanded) rows.toggleExpanded(currentIndex)
    Keys.onLeftPressed: if (currentItem && (currentItem as ReviewRow).expanded) rows.toggleExpanded(currentIndex)

    function expand(row: var): void { rows.toggleExpanded(row) }

    model: ReviewRows {
        id: rows

        source: list.source
    }
    header: Item {
        width: list.width - 12
        height: list.source.stage === CleanListModel.Stage.Done ? banner.height + Theme.gap : 0

        ReportBanner {
            id: banner

            width: parent.width
            model: list.source
        }
    }
    delegate: ReviewRow {
        width: list.width - 12
        focusShown: list.activeFocus && ListView.isCurrentItem
        onToggled: rows.toggle(index)
        onExpansionToggled: rows.toggleExpanded(index)
        path: isHead ? "" : rows.path(index)
    }
}
