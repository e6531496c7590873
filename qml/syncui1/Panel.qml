import QtQuick

// A surface that holds one part of the window.
Rectangle {
    color: Theme.panel
    radius: Theme.radius
    border.width: 1
    border.color: Theme.edge
}
