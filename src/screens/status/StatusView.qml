import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Graphs
import Tavrel.Models
import Tavrel.Status

// The machine live. While the page can be seen it counts as a watcher of the monitor.
Flickable {
    id: page

    required property AppState app
    readonly property bool watching: visible && !app.motion.hidden
    readonly property real spacing: 14
    readonly property int columns: width < 760 ? 2 : 3
    readonly property real cell: (content.width - (columns - 1) * spacing) / columns

    objectName: "statusView"
    contentHeight: content.height + 2 * Theme.margin
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    activeFocusOnTab: true
    onMovingChanged: app.motion.scrolling = moving
    onWatchingChanged: app.monitor.processWatchers += watching ? 1 : -1
    Component.onCompleted: app.readFullDiskAccess()
    Component.onDestruction: if (watching) app.monitor.processWatchers -= 1
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Status")
    T.ScrollBar.vertical: SlimScrollBar {}

    Keys.onUpPressed: contentY = Math.max(0, contentY - 60)
    Keys.onDownPressed: contentY = Math.max(0, Math.min(contentHeight - height, contentY + 60))

    StatusCards {
        id: cards

        app: page.app
    }

    Column {
        id: content

        x: (page.width - width) / 2
        y: Theme.gap
        width: Math.min(page.width - 2 * Theme.margin, 1040)
        spacing: page.spacing

        FullDiskAccessBanner {
            visible: page.app.asksForFullDiskAccess && !page.app.hasFullDiskAccess
            width: parent.width
            app: page.app
        }
        Row {
            spacing: page.spacing

            HealthCard {
                width: content.width - (fanBeside.visible ? page.cell + page.spacing : 0)
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
            spacing: page.spacing

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
            spacing: page.spacing

            BatteryCard {
                id: battery

                readonly property bool wanted: cards.hasBattery || cards.accessories.length > 0

                width: (content.width - page.spacing) / 2
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
