import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Models
import Tavrel.Status

// The machine live. While the page can be seen it counts as a watcher of the monitor.
T.Control {
    id: page

    required property AppState app
    readonly property bool watching: visible && !app.motion.hidden
    readonly property real gap: 14
    readonly property int columns: width < 760 ? 2 : 3
    readonly property real cell: (content.width - (columns - 1) * gap) / columns
    readonly property T.Control focused: Window.activeFocusItem as T.Control

    objectName: "statusView"
    focus: true
    focusPolicy: Qt.StrongFocus
    onWatchingChanged: app.status.monitor.processWatchers += watching ? 1 : -1
    // Not what was pressed: it would move away below the pointer.
    onFocusedChanged: if (focused && focused.visualFocus) view.reveal(focused)
    Component.onCompleted: app.readFullDiskAccess()
    Component.onDestruction: if (watching) app.status.monitor.processWatchers -= 1
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Status")

    Keys.onPressed: event => {
        const place = ({
            [Qt.Key_Up]: view.contentY - 60,
            [Qt.Key_Down]: view.contentY + 60,
            [Qt.Key_PageUp]: view.contentY - view.height,
            [Qt.Key_PageDown]: view.contentY + view.height,
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: view.contentHeight
        })[event.key]
        if (place === undefined) return
        view.scrollTo(place)
        event.accepted = true
    }

    StatusCards {
        id: cards

        app: page.app
    }

    contentItem: Flickable {
        id: view

        contentHeight: content.height + 2 * Theme.margin
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        onMovingChanged: page.app.motion.scrolling = moving
        Component.onDestruction: if (moving) page.app.motion.scrolling = false
        T.ScrollBar.vertical: SlimScrollBar {}

        function scrollTo(place: real): void {
            contentY = Math.max(0, Math.min(contentHeight - height, place))
        }
        // As little as it takes to see all of the item, if it is one of the page's.
        function reveal(item: Item): void {
            let holder = item
            while (holder && holder !== content) holder = holder.parent
            if (!holder) return
            const top = contentItem.mapFromItem(item, 0, 0).y - Theme.margin
            const bottom = top + item.height + 2 * Theme.margin
            if (top < contentY) scrollTo(top)
            else if (bottom > contentY + height) scrollTo(bottom - height)
        }

        Column {
            id: content

            x: (view.width - width) / 2
            y: Theme.gap
            width: Math.min(view.width - 2 * Theme.margin, 1040)
            spacing: page.gap

            FullDiskAccessBanner {
                visible: page.app.asksForFullDiskAccess && !page.app.hasFullDiskAccess
                width: parent.width
                app: page.app
            }
            Row {
                spacing: page.gap

                HealthCard {
                    width: content.width - (fanBeside.visible ? page.cell + page.gap : 0)
                    height: fanBeside.visible ? fanBeside.height : implicitHeight
                    score: cards.health
                    grade: cards.grade
                    gradeText: cards.gradeText
                    machine: cards.machine
                }
                FanControlCard {
                    id: fanBeside

                    visible: !battery.wanted
                    width: page.cell
                    fans: cards.fans
                    detail: cards.fanDetail
                }
            }
            Grid {
                columns: page.columns
                spacing: page.gap

                MetricCard {
                    width: page.cell
                    symbol: "cpu"
                    values: cards.cpu
                    colour: Theme.glows[4]
                    Sparkline { anchors.fill: parent; values: cards.cpu.history; colour: Theme.glows[4] }
                }
                MetricCard {
                    width: page.cell
                    symbol: "rectangle.3.group"
                    values: cards.gpu
                    colour: Theme.amber
                    Sparkline { anchors.fill: parent; values: cards.gpu.history; colour: Theme.amber }
                }
                MetricCard {
                    width: page.cell
                    symbol: "memorychip"
                    values: cards.memory
                    colour: Theme.sand
                    Sparkline { anchors.fill: parent; values: cards.memory.history; colour: Theme.sand }
                }
                MetricCard {
                    width: page.cell
                    symbol: "internaldrive"
                    values: cards.disk
                    colour: Theme.steel
                    Meter {
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width
                        height: 8
                        fraction: cards.disk.share
                        colour: cards.diskNearlyFull ? Theme.amber : Theme.steel
                    }
                }
                MetricCard {
                    width: page.cell
                    symbol: "network"
                    values: cards.network
                    colour: Theme.sky
                    Sparkline { anchors.fill: parent; values: cards.network.history; colour: Theme.sky }
                }
                MetricCard {
                    width: page.cell
                    symbol: "thermometer.medium"
                    values: cards.thermal
                    colour: Theme.review
                    Meter {
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width
                        height: 8
                        fraction: cards.thermal.share
                        colour: Theme.review
                    }
                }
            }
            Row {
                visible: battery.wanted
                spacing: page.gap

                BatteryCard {
                    id: battery

                    readonly property bool wanted: cards.hasBattery || cards.accessories.length > 0

                    width: (content.width - page.gap) / 2
                    hasBattery: cards.hasBattery
                    battery: cards.battery
                    charging: cards.charging
                    accessories: cards.accessories
                }
                FanControlCard {
                    width: battery.width
                    height: battery.height
                    fans: cards.fans
                    detail: cards.fanDetail
                }
            }
            ProcessesCard {
                width: parent.width
                app: page.app
            }
        }
    }
    FocusRing {
        shown: page.visualFocus
        gap: -2
    }
}
