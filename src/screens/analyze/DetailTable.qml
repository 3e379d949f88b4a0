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
    readonly property AnalyzeRows rows: app.folderRows

    function sortBy(column: int): void {
        if (table.rows.sortColumn === column) table.rows.ascending = !table.rows.ascending
        else table.rows.sortColumn = column
    }
    function find(text: string): void {
        typed += text
        forget.restart()
        list.forceActiveFocus(Qt.ShortcutFocusReason)
        const found = table.rows.indexOfName(typed, list.currentIndex + (typed.length === 1 ? 1 : 0))
        if (found >= 0) list.currentIndex = found
    }

    // Whether that key goes on with a name.
    function takes(event: var): bool {
        const plain = event.modifiers === Qt.NoModifier || event.modifiers === Qt.ShiftModifier
        if (!plain || event.text === "" || event.text < " " || event.key === Qt.Key_Delete) return false
        if (event.text === " " && typed === "") return false
        find(event.text)
        return true
    }
    function tickOrFind(row: int): void {
        if (typed !== "" && table.rows.indexOfName(typed + " ", list.currentIndex) >= 0) return find(" ")
        typed = ""
        table.rows.toggle(row)
    }
    function makeCurrent(row: int): void {
        list.currentIndex = row
        list.forceActiveFocus(Qt.MouseFocusReason)
    }
    // Another folder is shown: it begins at its beginning, once the list has its rows.
    Timer {
        id: begin

        interval: 0
        onTriggered: {
            table.typed = ""
            list.currentIndex = list.activeFocus && list.count > 0 ? 0 : -1
            list.positionViewAtBeginning()
        }
    }
    Timer {
        id: forget

        interval: 1000
        onTriggered: table.typed = ""
    }
    Connections {
        target: table.rows
        function onModelReset(): void { begin.restart() }
    }

    component Heading: T.AbstractButton {
        id: heading

        required property int column
        property int alignment: Text.AlignRight
        readonly property bool isSorted: table.rows.sortColumn === column

        implicitHeight: 26
        hoverEnabled: true
        focusPolicy: Qt.StrongFocus
        Accessible.name: qsTr("Sort by %1").arg(text)
        onClicked: table.sortBy(column)
        Keys.onReturnPressed: clicked()

        background: Item {
            FocusRing { shown: heading.visualFocus; gap: -2 }
        }
        contentItem: Label {
            text: heading.text + (heading.isSorted ? (table.rows.ascending ? " ↑" : " ↓") : "")
            size: Theme.fontTiny
            font.weight: Font.DemiBold
            color: heading.isSorted || heading.hovered ? Theme.secondary : Theme.tertiary
            horizontalAlignment: heading.alignment
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
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
        model: table.rows
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Contents")
        onMovingChanged: table.app.motion.scrolling = moving
        onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0) currentIndex = 0

        Keys.onReturnPressed: table.rows.open(currentIndex)
        Keys.onDeletePressed: table.rows.trash(currentIndex)

        delegate: DetailRow {
            id: row

            width: list.width - 12
            compact: table.compact
            current: list.activeFocus && ListView.isCurrentItem
            app: table.app
            url: table.rows.url(index)
            onClicked: {
                table.makeCurrent(index)
                table.rows.open(index)
            }
            onDoubleClicked: {}  // the second click would open what the first has brought here
            onToggled: {
                table.makeCurrent(index)
                table.rows.toggle(index)
            }
            onTrashed: table.rows.trash(index)
            onHoveredChanged: hovered ? table.rows.enter(index) : table.rows.leave(index)

            // Before the button, for which a space is a click.
            Keys.onSpacePressed: table.tickOrFind(index)
            MenuRequest {
                anchors.fill: parent
                onAsked: menu.popup()
            }
            Keys.onPressed: event => {
                if (!menu.isAskedBy(event)) return
                menu.popup(row, 24, row.height)
                event.accepted = true
            }
            EntryMenu {
                id: menu

                path: row.path
                removable: row.removable
                onTrashed: table.rows.trash(row.index)
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
