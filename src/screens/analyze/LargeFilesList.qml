import QtQuick
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// The largest files below the folder.
FocusScope {
    id: files

    required property ShowState show
    required property MotionPause motion
    required property AnalyzeModel model
    property bool walks: false  // the keyboard has chosen the row

    AnalyzeRows {
        id: rows

        source: files.model
    }
    FollowedRow {
        list: list
        rows: rows
    }
    EntryMenu {
        id: entryMenu

        onTrashed: entry => rows.trash(entry)
        onClosed: list.forceActiveFocus(Qt.PopupFocusReason)
    }
    Label {
        anchors.centerIn: parent
        visible: files.model.listing || list.count === 0
        text: files.model.listing ? qsTr("Searching…") : qsTr("No files over 500 MB here")
        size: Theme.fontSubtitle
        color: Theme.secondary
    }
    Label {
        id: heading

        visible: list.visible
        height: 28
        text: qsTr("Files over 500 MB")
        size: Theme.fontSubtitle
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }
    ScrollList {
        id: list

        objectName: "largeFileList"
        anchors.top: heading.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: count > 0 && !files.model.listing
        focus: true
        motion: files.motion
        model: rows
        Accessible.name: qsTr("Large files")

        Keys.onSpacePressed: rows.toggle(rows.url(currentIndex))
        Keys.onPressed: files.walks = true
        Keys.onDeletePressed: event => { if (files.walks && !event.isAutoRepeat) rows.trash(rows.url(currentIndex)) }

        delegate: LargeFileRow {
            width: list.width - 12
            current: list.activeFocus && ListView.isCurrentItem
            walkedTo: current && files.walks
            show: files.show
            menu: entryMenu
            onToggled: entry => rows.toggle(entry)
            onTrashed: entry => rows.trash(entry)
        }
    }
}
