import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// What the folder holds, as a table that lights up with the chart. Arrow keys walk it, the space bar marks,
// Return opens, letters find a name.
FocusScope {
    id: table

    required property AppState app
    required property AnalyzeModel model
    property bool compact: false  // without the bars
    property string typed

    function find(text: string): void {
        typed += text
        forget.restart()
        const found = rows.indexOfName(typed, list.currentIndex + (typed.length === 1 ? 1 : 0))
        if (found >= 0) list.currentIndex = found
    }

    Timer {
        id: forget

        interval: 1000
        onTriggered: table.typed = ""
    }
    AnalyzeRows {
        id: rows

        source: table.model
    }

    component Heading: T.AbstractButton {
        id: heading

        required property int column
        property int alignment: Text.AlignRight
        readonly property bool isSorted: rows.sortColumn === column

        implicitHeight: 26
        hoverEnabled: true
        focusPolicy: Qt.StrongFocus
        Accessible.name: qsTr("Sort by %1").arg(text)
        onClicked: rows.sortBy(column)
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()

        background: Item {
            FocusRing { shown: heading.visualFocus; gap: -2 }
        }
        contentItem: Label {
            text: heading.text + (heading.isSorted ? (rows.ascending ? " ↑" : " ↓") : "")
            size: Theme.fontTiny
            font.weight: Font.DemiBold
            color: heading.isSorted || heading.hovered ? Theme.secondary : Theme.tertiary
            horizontalAlignment: heading.alignment
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
    }

    FollowedRow {
        list: list
        rows: rows
    }
    EntryMenu {
        id: menu

        onTrashed: entry => rows.trash(entry)
    }

    Item {
        id: head

        width: list.width - 12
        height: 28

        CheckBox {
            id: all

            anchors.verticalCenter: parent.verticalCenter
            x: 6
            text: qsTr("Select all")
            colour: Theme.glows[3]
            mark: table.model.allSelected ? CheckBox.Mark.On
                : table.model.selectedCount > 0 ? CheckBox.Mark.Mixed : CheckBox.Mark.Off
            onClicked: table.model.toggleAll()

            Tip { text: all.text; shown: all.hovered || all.visualFocus }
        }
        Heading {
            anchors.verticalCenter: parent.verticalCenter
            anchors.left: all.right
            anchors.leftMargin: 9
            width: 80
            alignment: Text.AlignLeft
            text: qsTr("NAME")
            column: AnalyzeRows.Name
        }
        Heading {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: table.compact ? 106 : 154
            width: 72
            text: qsTr("SIZE")
            column: AnalyzeRows.Size
        }
        Heading {
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 6
            width: 62
            text: qsTr("FILES")
            column: AnalyzeRows.Files
        }
    }
    ListView {
        id: list

        objectName: "entryList"
        anchors.top: head.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        reuseItems: true
        cacheBuffer: 200
        currentIndex: -1
        model: rows
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Contents")
        onMovingChanged: table.app.motion.scrolling = moving
        Component.onDestruction: if (moving) table.app.motion.scrolling = false
        onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0) currentIndex = 0

        Keys.onSpacePressed: event => table.typed === "" ? rows.toggle(rows.url(currentIndex)) : table.find(" ")
        Keys.onReturnPressed: rows.open(rows.url(currentIndex))
        Keys.onEnterPressed: rows.open(rows.url(currentIndex))
        Keys.onDeletePressed: event => { if (!event.isAutoRepeat) rows.trash(rows.url(currentIndex)) }
        Keys.onPressed: event => {
            const plain = event.modifiers === Qt.NoModifier || event.modifiers === Qt.ShiftModifier
            if (!plain || event.text === "" || event.text < " " || event.key === Qt.Key_Delete) return
            table.find(event.text)
            event.accepted = true
        }

        delegate: DetailRow {
            id: row

            width: list.width - 12
            compact: table.compact
            current: list.activeFocus && ListView.isCurrentItem
            app: table.app
            onOpened: entry => rows.open(entry)
            onToggled: entry => rows.toggle(entry)
            onTrashed: entry => rows.trash(entry)
            onHoveredChanged: hovered ? rows.enter(url) : rows.leave(url)
            onUrlChanged: if (hovered) rows.enter(url)

            TapHandler {
                acceptedButtons: Qt.RightButton
                onTapped: menu.show(row.url, row.removable)
            }
        }
        T.ScrollBar.vertical: SlimScrollBar {}

        Label {
            anchors.centerIn: parent
            visible: list.count === 0 && !table.model.listing
            text: qsTr("Nothing here")
            color: Theme.secondary
        }
    }
}
