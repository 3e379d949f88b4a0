import QtQuick

// Where a right click asks for a menu. An item of its own, since a button with such a handler would take every
// button of the mouse for a click.
Item {
    id: place

    signal asked()

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: place.asked()
    }
}
