import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Models
import Tavrel.Status

// The machine live. It watches the monitor while it can be seen.
T.Control {
    id: page

    required property StatusState status
    required property MotionPause motion
    required property Preferences preferences
    required property bool lacksFullDiskAccess
    readonly property bool watching: visible && !motion.hidden
    readonly property real gap: 14
    readonly property int columns: width < 760 ? 2 : 3
    readonly property real cell: (content.width - (columns - 1) * gap) / columns
    readonly property T.Control focused: Window.activeFocusItem as T.Control

    // Wants the access to the whole disk read anew.
    signal fullDiskAccessRequested

    objectName: "statusView"
    focus: true
    focusPolicy: Qt.StrongFocus
    // Not what was pressed: it would move away below the pointer.
    onFocusedChanged: if (focused && focused.visualFocus) view.reveal(focused)
    Component.onCompleted: fullDiskAccessRequested()
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

        monitor: page.status.monitor
    }
    MonitorWatcher {
        monitor: page.status.monitor
        active: page.watching
    }

    contentItem: Flickable {
        id: view

        contentHeight: content.height + 2 * Theme.margin
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        onMovingChanged: page.motion.scrolling = moving
        Component.onDestruction: if (moving) page.motion.scrolling = false
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
                visible: page.lacksFullDiskAccess
                width: parent.width
                onChecked: page.fullDiskAccessRequested()
            }
            Row {
                spacing: page.gap

                HealthCard {
                    width: content.width - (fanBeside.visible ? page.cell + page.gap : 0)
                    height: fanBeside.visible ? fanBeside.height : implicitHeight
                    values: cards.health
                }
                FanControlCard {
                    id: fanBeside

                    visible: !battery.wanted
                    width: page.cell
                    values: cards.fans
                }
            }
            Grid {
                columns: page.columns
                spacing: page.gap

                MetricCard {
                    width: page.cell
                    values: cards.cpu
                    colour: Theme.glows[4]
                    Sparkline { anchors.fill: parent; values: cards.cpu.history; colour: Theme.glows[4] }
                }
                MetricCard {
                    width: page.cell
                    values: cards.gpu
                    colour: Theme.amber
                    Sparkline { anchors.fill: parent; values: cards.gpu.history; colour: Theme.amber }
                }
                MetricCard {
                    width: page.cell
                    values: cards.memory
                    colour: Theme.sand
                    Sparkline { anchors.fill: parent; values: cards.memory.history; colour: Theme.sand }
                }
                MetricCard {
                    width: page.cell
                    values: cards.disk
                    colour: Theme.steel
                    Meter {
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width
                        height: 8
                        fraction: cards.disk.share
                        colour: cards.disk.state === StatusCards.Elevated ? Theme.amber : Theme.steel
                    }
                }
                MetricCard {
                    width: page.cell
                    values: cards.network
                    colour: Theme.sky
                    Sparkline { anchors.fill: parent; values: cards.network.history; colour: Theme.sky }
                }
                MetricCard {
                    width: page.cell
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
                    values: cards.battery
                    accessories: cards.accessories
                }
                FanControlCard {
                    width: battery.width
                    height: battery.height
                    values: cards.fans
                }
            }
            ProcessesCard {
                width: parent.width
                monitor: page.status.monitor
                preferences: page.preferences
            }
        }
    }
    FocusRing {
        shown: page.visualFocus
        gap: -2
    }
}
