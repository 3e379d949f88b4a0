import QtQuick
import Tavrel.Controls
import Tavrel.Models

// What the last clean did.
Rectangle {
    id: banner

    required property CleanListModel model
    readonly property color tone: model.preview ? Theme.review : Theme.good

    visible: model.stage === CleanListModel.Stage.Done
    implicitHeight: texts.implicitHeight + 24
    height: implicitHeight
    radius: Theme.radius
    color: Theme.faded(tone, 0.1)
    border.width: 1
    border.color: Theme.faded(tone, 0.25)

    Column {
        id: texts

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 16
        spacing: 4

        Label {
            width: parent.width
            text: banner.model.reportText
            color: banner.tone
            font.weight: Font.Medium
        }
        Label {
            width: parent.width
            visible: text !== ""
            text: banner.model.skippedReasons
            size: Theme.fontSmall
            color: Theme.secondary
            wrapMode: Text.Wrap
        }
    }
}
