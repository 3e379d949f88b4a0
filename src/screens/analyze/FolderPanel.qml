import QtQuick
import QtQuick.Templates as T
import Tavrel.Controls
import Tavrel.Models
import Tavrel.Analyze

// Where one can go, where one is, and what is there.
Item {
    id: panel

    required property AnalyzeModel model
    required property PlaceList places
    required property ShowState show
    required property Explorer explorer

    implicitWidth: 230

    component Heading: Label {
        leftPadding: 8
        bottomPadding: 3
        size: 9.5
        font.weight: Font.DemiBold
        font.capitalization: Font.AllUppercase
        font.letterSpacing: 0.6
        color: Theme.tertiary
        Accessible.role: Accessible.Heading
    }

    Flickable {
        anchors.top: parent.top
        anchors.bottom: card.top
        anchors.bottomMargin: Theme.gap
        width: parent.width
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        T.ScrollBar.vertical: SlimScrollBar {}

        Column {
            id: column

            width: parent.width
            spacing: 1

            Heading { text: qsTr("Places") }
            Repeater {
                model: panel.places.all

                PlaceRow {
                    required property var modelData

                    width: column.width
                    symbol: modelData.symbol
                    title: modelData.title
                    selected: String(modelData.url) === String(panel.explorer.folderUrl)
                    onClicked: panel.model.navigateTo(modelData.url)
                }
            }
            Item { width: 1; height: 12 }
            Heading { text: qsTr("You are here") }
            Repeater {
                model: Crumbs { id: crumbs; titles: panel.model.crumbs }

                PlaceRow {
                    required property int index
                    readonly property bool isHere: index === crumbs.count - 1

                    width: column.width
                    indent: index
                    symbol: isHere ? "folder.fill" : "folder"
                    selected: isHere
                    onClicked: panel.model.goTo(index)
                }
            }
        }
    }
    Card {
        id: card

        anchors.bottom: parent.bottom
        width: parent.width
        height: facts.height + 24

        FileIcon {
            id: icon

            x: 12
            y: 12
            width: 28
            height: 28
            show: panel.show
            file: panel.explorer.folderUrl
            folder: true
        }
        Column {
            id: facts

            anchors.left: icon.right
            anchors.leftMargin: 10
            anchors.right: parent.right
            anchors.rightMargin: 12
            y: 12
            spacing: 2

            Label {
                width: parent.width
                text: panel.model.title
                size: 14
                font.weight: Font.DemiBold
                elide: Text.ElideMiddle
            }
            Label {
                width: parent.width
                text: panel.model.totalText
                size: 13
                color: Theme.glows[3]
            }
            Label {
                width: parent.width
                text: panel.model.countText + " · " + panel.model.filesText
                size: Theme.fontSmall
                color: Theme.secondary
            }
            Label {
                width: parent.width
                text: panel.model.measuringText
                visible: text !== ""
                size: Theme.fontSmall
                color: Theme.review
            }
        }
    }
}
