pragma Singleton

import QtQuick

// Every colour, size, font and duration of the program. Tabs are counted in their order.
QtObject {
    readonly property color text: Qt.rgba(1, 1, 1, 0.92)
    readonly property color secondary: Qt.rgba(1, 1, 1, 0.55)
    readonly property color tertiary: Qt.rgba(1, 1, 1, 0.32)
    readonly property color card: Qt.rgba(1, 1, 1, 0.05)
    readonly property color cardHover: Qt.rgba(1, 1, 1, 0.08)
    readonly property color stroke: Qt.rgba(1, 1, 1, 0.08)
    readonly property color ink: Qt.rgba(0.09, 0.12, 0.2, 1)
    readonly property color review: Qt.rgba(0.98, 0.72, 0.35, 1)
    readonly property color good: Qt.rgba(0.45, 0.85, 0.62, 1)
    readonly property color danger: Qt.rgba(1, 0.45, 0.42, 1)
    readonly property color amber: Qt.rgba(1, 0.7, 0.4, 1)
    readonly property color sand: Qt.rgba(0.95, 0.85, 0.6, 1)
    readonly property color steel: Qt.rgba(0.45, 0.6, 0.95, 1)
    readonly property color sky: Qt.rgba(0.45, 0.75, 1, 1)
    readonly property color shade: Qt.rgba(0.02, 0.03, 0.06, 0.72)

    readonly property list<color> glows: [
        Qt.rgba(0.4, 0.62, 1, 1),
        Qt.rgba(0.3, 0.85, 0.85, 1),
        Qt.rgba(0.65, 0.52, 1, 1),
        Qt.rgba(0.45, 0.9, 0.62, 1),
        amber
    ]
    readonly property list<color> tintTops: [
        Qt.rgba(0.13, 0.19, 0.32, 1),
        Qt.rgba(0.08, 0.22, 0.25, 1),
        Qt.rgba(0.19, 0.15, 0.33, 1),
        Qt.rgba(0.12, 0.21, 0.18, 1),
        Qt.rgba(0.25, 0.19, 0.12, 1)
    ]
    readonly property list<color> tintBottoms: [
        Qt.rgba(0.07, 0.09, 0.15, 1),
        Qt.rgba(0.05, 0.1, 0.12, 1),
        Qt.rgba(0.08, 0.07, 0.15, 1),
        Qt.rgba(0.06, 0.1, 0.09, 1),
        Qt.rgba(0.11, 0.09, 0.07, 1)
    ]

    function faded(colour: color, opacity: real): color {
        return Qt.rgba(colour.r, colour.g, colour.b, opacity)
    }

    readonly property string fontFamily: "Inter"
    readonly property string symbolFamily: "Material Design Icons"
    readonly property real fontTitle: 30
    readonly property real fontHeading: 17
    readonly property real fontSubtitle: 13
    readonly property real fontBody: 12.5
    readonly property real fontSmall: 11
    readonly property real fontTiny: 10.5

    readonly property real gap: 8
    readonly property real gapLarge: 16
    readonly property real margin: 24
    readonly property real radius: 12
    readonly property real radiusSmall: 6

    // Motion stops at once where the user asked for less of it.
    property bool reduceMotion: false
    // Nobody sees the window, or something scrolls: what moves all the time rests.
    property bool paused: false
    readonly property int quick: reduceMotion ? 0 : 120
    readonly property int moderate: reduceMotion ? 0 : 260
    readonly property int spring: reduceMotion ? 0 : 500
    readonly property int irisDuration: reduceMotion ? 0 : 700
    readonly property int pulse: 900
    readonly property int resealDelay: 2500
}
