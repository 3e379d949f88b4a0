import QtQuick
import Tavrel.Controls

// Shows one screen; a change lets the old one fade and grow while the new one comes up from a little smaller.
FocusScope {
    id: switcher

    required property string identity
    required property TabScreens screens
    property Loader current: first

    onIdentityChanged: change()
    Component.onCompleted: current.sourceComponent = screens.component(identity)

    function change(): void {
        const leaving = current
        const entering = current === first ? second : first
        entering.sourceComponent = screens.component(identity)
        current = entering
        motion.stop()
        motion.leaving = leaving
        motion.entering = entering
        entering.focus = true
        motion.restart()
    }

    Loader {
        id: first

        anchors.fill: parent
        focus: true
        enabled: switcher.current === this
        z: enabled ? 1 : 0
    }
    Loader {
        id: second

        anchors.fill: parent
        enabled: switcher.current === this
        z: enabled ? 1 : 0
    }

    ParallelAnimation {
        id: motion

        property Loader leaving
        property Loader entering

        onStopped: {
            if (leaving && leaving !== switcher.current) leaving.sourceComponent = undefined
            if (entering) {
                entering.opacity = 1
                entering.scale = 1
            }
        }

        NumberAnimation { target: motion.entering; property: "opacity"; from: 0; to: 1; duration: Theme.moderate }
        NumberAnimation { target: motion.entering; property: "scale"; from: 0.94; to: 1; duration: Theme.spring; easing.type: Easing.OutCubic }
        NumberAnimation { target: motion.leaving; property: "opacity"; from: 1; to: 0; duration: Theme.quick }
        NumberAnimation { target: motion.leaving; property: "scale"; from: 1; to: 1.04; duration: Theme.moderate }
    }
}
