import QtQuick

// The ground that things belonging together stand on.
Rectangle {
    radius: Theme.radius
    color: Theme.card
    border.width: 1
    border.color: Theme.stroke
}
