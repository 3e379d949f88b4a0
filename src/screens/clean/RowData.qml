import QtQuick

// What a row of the review knows of itself.
Item {
    required property int index
    required property bool isHead
    required property string title
    required property string summary
    required property var mark
    required property bool isLast
    required property bool expanded
    required property string size
    required property var symbol
    required property var countText
    required property var selectedText
    required property var review
    required property var permanent
    required property var admin
    property string path
    property bool focusShown: false

    signal toggled
    signal expansionToggled
}
