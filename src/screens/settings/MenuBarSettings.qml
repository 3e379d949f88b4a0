import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models

// Which figures the menu bar shows.
SettingsPage {
    id: page

    required property Preferences preferences

    heading: qsTr("Show in the menu bar")
    explanation: qsTr("With nothing ticked, Tavrel shows just its icon. Click it for the full status panel.")

    Card {
        width: parent.width
        height: rows.implicitHeight + 8

        Column {
            id: rows

            y: 4
            width: parent.width

            Repeater {
                model: MenuBarMetrics {
                    id: metrics

                    preferences: page.preferences
                }

                T.AbstractButton {
                    id: metric

                    required property int index
                    required property string title
                    required property string symbol
                    required property bool shown

                    width: rows.width
                    height: 42
                    text: title
                    hoverEnabled: true
                    focusPolicy: Qt.StrongFocus
                    Accessible.role: Accessible.CheckBox
                    Accessible.name: title
                    Accessible.checkable: true
                    Accessible.checked: shown
                    onClicked: metrics.toggle(index)
                    Keys.onReturnPressed: metrics.toggle(index)

                    background: Rectangle {
                        anchors.fill: parent
                        anchors.leftMargin: 5
                        anchors.rightMargin: 5
                        radius: Theme.radiusSmall + 2
                        color: metric.hovered ? Theme.cardHover : "transparent"

                        FocusRing {
                            shown: metric.visualFocus
                            gap: 0
                            radius: Theme.radiusSmall + 2
                        }
                    }
                    contentItem: Item {
                        Symbol {
                            id: icon

                            anchors.verticalCenter: parent.verticalCenter
                            x: 18
                            width: 20
                            name: metric.symbol
                            size: 18
                            color: metric.shown ? Theme.glows[0] : Theme.secondary
                        }
                        Label {
                            anchors.verticalCenter: parent.verticalCenter
                            anchors.left: icon.right
                            anchors.leftMargin: 12
                            text: metric.title
                            size: 13
                            Accessible.ignored: true
                        }
                        Symbol {
                            anchors.verticalCenter: parent.verticalCenter
                            anchors.right: parent.right
                            anchors.rightMargin: 20
                            visible: metric.shown
                            name: "checkmark"
                            size: 17
                            color: Theme.glows[0]
                        }
                    }
                }
            }
        }
    }
}
