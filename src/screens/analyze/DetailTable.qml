import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// What the folder holds, as a table that lights up with the chart. Arrow keys walk it, the space bar marks,
// Return opens, letters find a name.
FocusScope {
    id: table

    required property AnalyzeRows rows
    required property ShowState show
    required property MotionPause motion
    required property AnalyzeModel model
    property bool compact: false  // without the bars
    property string typed
    property bool chosen: false  // a person has come to the row: it is followed, and may be deleted
    property bool walks: false  // by keyboard

    function find(text: string): void {
        typed += text
        forget.restart()
        list.forceActiveFocus(Qt.ShortcutFocusReason)
        const found = table.rows.indexOfName(typed, list.currentIndex + (typed.length === 1 ? 1 : 0))
        if (found < 0) return
        walks = chosen = true
        list.currentIndex = found
    }

    // Whether that key goes on with a name.
    function takes(event: var): bool {
        const plain = event.modifiers === Qt.NoModifier || event.modifiers === Qt.ShiftModifier
        if (!plain || event.text === "" || event.text < " " || event.key === Qt.Key_Delete) return false
        if (event.text === " " && typed === "") return false
        find(event.text)
        return true
    }
    function tickOrFind(entry: url): void {
        if (typed !== "" && table.rows.indexOfName(typed + " ", list.currentIndex) >= 0) return find(" ")
        typed = ""
        table.rows.toggle(entry)
    }
    function makeCurrent(entry: url): void {
        walks = false
        chosen = true
        list.currentIndex = table.rows.rowOf(entry)
        list.forceActiveFocus(Qt.MouseFocusReason)
    }

    // Another folder is shown: it begins at its beginning, once the list has its rows.
    Timer {
        id: begin

        interval: 0
        onTriggered: {
            table.typed = ""
            table.walks = false
            table.chosen = false
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
        onClicked: table.rows.sortBy(column)
        Keys.onReturnPressed: clicked()
        Keys.onEnterPressed: clicked()

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

    FollowedRow {
        enabled: table.chosen
        list: list
        rows: table.rows
    }
    EntryMenu {
        id: entryMenu

        onTrashed: entry => table.rows.trash(entry)
        onClosed: list.forceActiveFocus(Qt.PopupFocusReason)
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
    ScrollList {
        id: list

        objectName: "entryList"
        anchors.top: head.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        currentIndex: -1
        motion: table.motion
        model: table.rows
        Accessible.name: qsTr("Contents")
        onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0) currentIndex = 0
        // Until somebody comes to a row it is the first, whichever row that is.
        onCurrentIndexChanged: if (!table.chosen && currentIndex > 0) currentIndex = 0

        Keys.onPressed: table.walks = table.chosen = true
        Keys.onReturnPressed: table.rows.open(table.rows.url(currentIndex))
        Keys.onEnterPressed: table.rows.open(table.rows.url(currentIndex))
        Keys.onDeletePressed: event => { if (table.chosen && !event.isAutoRepeat) table.rows.trash(table.rows.url(currentIndex)) }

        delegate: DetailRow {
            id: row

            width: list.width - 12
            compact: table.compact
            current: list.activeFocus && ListView.isCurrentItem
            walkedTo: current && table.walks
            show: table.show
            menu: entryMenu
            onOpened: entry => {
                table.makeCurrent(entry)
                table.rows.open(entry)
            }
            onToggled: entry => {
                table.makeCurrent(entry)
                table.rows.toggle(entry)
            }
            onTrashed: entry => table.rows.trash(entry)
            onHoveredChanged: hovered ? table.rows.enter(url) : table.rows.leave(url)
            onUrlChanged: if (hovered) table.rows.enter(url)

            // Before the button, for which a space is a click.
            Keys.onSpacePressed: table.tickOrFind(url)
        }

        Label {
            anchors.centerIn: parent
            visible: list.count === 0 && !table.model.listing
            text: qsTr("Nothing here")
            color: Theme.secondary
        }
    }
}
