import QtQuick
import Tavrel.Clean
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Scene

// Scan, review, clean and report of one list.
FocusScope {
    id: screen

    required property TrashEmptier trashEmptier
    required property ShowState show
    required property MotionPause motion
    required property Preferences preferences
    required property CleanListModel model
    required property string idleTitle
    required property string idleSubtitle
    required property string reviewTitle
    required property string actionTitle
    property color glow: Theme.glows[0]
    readonly property bool rests: model.stage === CleanListModel.Stage.Ready || model.stage === CleanListModel.Stage.Done

    onModelChanged: reseal.stop()

    CleanHero {
        id: hero

        model: screen.model
        idleTitle: screen.idleTitle
        idleSubtitle: screen.idleSubtitle
    }

    Connections {
        target: screen.model

        function onPhaseChanged(): void {
            if (screen.model.stage !== CleanListModel.Stage.Done) return
            hero.resealed = false
            reseal.restart()
        }
    }
    Timer {
        id: reseal

        interval: Theme.resealDelay
        onTriggered: hero.resealed = true
    }

    Column {
        id: middle

        anchors.centerIn: parent
        width: parent.width - 2 * Theme.margin
        spacing: Theme.gapLarge

        BlackHole {
            objectName: "blackHole"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.max(180, Math.min(420, screen.height - 210))
            height: width
            glow: screen.glow
            spinning: screen.model.working
            open: hero.irisOpening
            suction: screen.model.stage === CleanListModel.Stage.Cleaning
            growth: screen.model.feed ? screen.model.feed.swallowed : 0
            scanning: screen.model.stage === CleanListModel.Stage.Scanning
            feed: screen.model.feed
            shockwave: screen.show.shockwave
            animated: !Theme.reduceMotion
            paused: Theme.paused || review.opacity === 1
            Accessible.ignored: true
        }
        HeroText {
            anchors.horizontalCenter: parent.horizontalCenter
            width: parent.width
            title: hero.title
            subtitle: hero.subtitle
        }
        Item {
            width: parent.width
            height: 36

            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 12

                PillButton {
                    text: qsTr("Scan")
                    visible: screen.model.stage === CleanListModel.Stage.Idle
                    focus: visible
                    onClicked: screen.model.scan()
                }
                PillButton {
                    text: qsTr("Review results")
                    visible: screen.rests && screen.model.itemCount > 0
                    onClicked: screen.model.reviewing = true
                }
                PillButton {
                    text: qsTr("Scan again")
                    kind: PillButton.Kind.Secondary
                    visible: screen.rests
                    onClicked: screen.model.scan()
                }
                EmptyTrashButton {
                    emptier: screen.trashEmptier
                    visible: screen.model.trashedSome && !screen.model.preview
                }
            }
        }
    }

    ReviewPanel {
        id: review

        anchors.fill: parent
        anchors.topMargin: Theme.gap
        motion: screen.motion
        preferences: screen.preferences
        model: screen.model
        title: screen.reviewTitle
        actionTitle: screen.actionTitle
        subtitle: hero.subtitle
        open: screen.model.reviewing
        onClosed: screen.model.reviewing = false
    }
}
