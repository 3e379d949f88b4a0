import QtQuick
import Tavrel.Controls
import Tavrel.Models

// The one window.
Window {
    id: window

    required property AppState app

    title: "Tavrel"
    width: 1000
    height: 680
    minimumWidth: 860
    minimumHeight: 600
    color: Theme.tintBottoms[app.tab]

    Binding { target: Theme; property: "reduceMotion"; value: window.app.reduceMotion }
    Binding { target: Theme; property: "paused"; value: window.app.motion.paused }

    ContentView {
        anchors.fill: parent
        app: window.app
        focus: true
    }
}
