import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models

// The way to this folder; each part leads back to it. The end of a long way is in view.
Flickable {
    id: trail

    required property AnalyzeModel model

    implicitHeight: 30
    contentWidth: row.width
    contentX: Math.max(0, contentWidth - width)
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentWidth > width
    clip: true

    Row {
        id: row

        height: parent.height

        Repeater {
            model: Crumbs { id: crumbs; titles: trail.model.crumbs }

            Row {
                id: part

                required property int index
                required property string title
                readonly property bool isHere: index === crumbs.count - 1

                height: row.height

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: part.index > 0
                    name: "chevron.right"
                    size: 13
                    color: Theme.tertiary
                }
                T.AbstractButton {
                    id: crumb

                    anchors.verticalCenter: parent.verticalCenter
                    text: part.title
                    implicitWidth: Math.min(label.implicitWidth, 180) + 12
                    implicitHeight: 24
                    hoverEnabled: true
                    focusPolicy: Qt.StrongFocus
                    Accessible.name: text
                    onClicked: trail.model.goTo(part.index)
                    Keys.onReturnPressed: clicked()

                    background: Rectangle {
                        radius: Theme.radiusSmall
                        color: crumb.hovered && !part.isHere ? Theme.card : "transparent"

                        FocusRing { shown: crumb.visualFocus; gap: 0 }
                    }
                    contentItem: Label {
                        id: label

                        text: crumb.text
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        elide: Text.ElideMiddle
                        font.weight: part.isHere ? Font.DemiBold : Font.Normal
                        color: part.isHere || crumb.hovered ? Theme.text : Theme.secondary
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
