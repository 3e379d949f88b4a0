import QtQuick
import Tavrel.Controls
import Tavrel.Analyze

// The round picture of a folder. Whoever shows it keeps the focus: the chart asks for it and takes it back.
FocusScope {
    id: chart

    property var layout
    property string focusId
    property string folder
    property alias icon: readout.icon
    property alias name: readout.name
    property alias size: readout.size
    property alias detail: readout.detail
    // The keyboard has opened a folder that is on its way: it shall begin at the first arc of that.
    property bool arriving: false

    // That arc wants the focus.
    signal focused(string id)
    // That arc gives it back, if it still has it.
    signal unfocused(string id)
    signal opened(string id)

    function goTo(id: string): void {
        if (id !== "") chart.focused(id)
    }
    function open(): void {
        if (chart.focusId === "") return
        arriving = true
        chart.opened(chart.focusId)
    }
    function arrive(): void {
        if (!arriving || !activeFocus || focusId !== "" || !rings.hasArcs) return
        arriving = false
        goTo(rings.first())
    }
    function sweepIn(): void {
        sweep.stop()
        rings.sweepAge = 0
        sweep.start()
    }

    activeFocusOnTab: rings.hasArcs
    Accessible.role: Accessible.Chart
    Accessible.name: readout.Accessible.name
    Accessible.focusable: rings.hasArcs

    Component.onCompleted: sweepIn()
    onFolderChanged: sweepIn()
    onActiveFocusChanged: {
        if (activeFocus && focusId === "") goTo(rings.first())
        else if (!activeFocus && focusId !== "") chart.unfocused(focusId)
    }

    Keys.onLeftPressed: goTo(rings.beside(-1))
    Keys.onRightPressed: goTo(rings.beside(1))
    Keys.onUpPressed: goTo(rings.outwards())
    Keys.onDownPressed: goTo(rings.inwards())
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()
    Keys.onSpacePressed: open()
    Keys.onEscapePressed: event => {
        arriving = false
        event.accepted = focusId !== ""
        chart.unfocused(focusId)
    }
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End) return
        goTo(event.key === Qt.Key_Home ? rings.first() : rings.last())
        event.accepted = true
    }

    FocusRing {
        shown: chart.activeFocus && chart.focusId === ""
        gap: 0
        radius: width / 2
    }
    OrbitRings {
        id: rings

        anchors.fill: parent
        layout: chart.layout
        focusId: chart.focusId
        animated: !Theme.reduceMotion
        paused: Theme.paused
        onHovered: id => chart.focused(id)
        onExited: id => chart.unfocused(id)
        onClicked: id => chart.opened(id)
        onLayoutChanged: chart.arrive()

        NumberAnimation on sweepAge {
            id: sweep

            running: false
            from: 0
            to: 1.6
            duration: Theme.reduceMotion ? 0 : 1600
        }
    }

    CenterReadout {
        id: readout

        anchors.centerIn: parent
        side: Math.min(chart.width, chart.height) * 0.3
    }

    // What a screen reader goes through; the eye sees the rings.
    Repeater {
        model: rings.spoken

        Item {
            id: arc

            required property int index
            required property string modelData
            readonly property rect place: rings.spokenPlaces[index] ?? Qt.rect(0, 0, 0, 0)

            x: place.x
            y: place.y
            width: place.width
            height: place.height
            Accessible.role: Accessible.Button
            Accessible.name: modelData
            Accessible.focusable: true
            Accessible.focused: rings.idAt(index) === chart.focusId
            Accessible.onPressAction: chart.opened(rings.idAt(arc.index))
        }
    }
}
