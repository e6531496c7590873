import QtQuick

// Shows where the keyboard is.
Rectangle {
    id: root

    required property Item target
    property bool shown: root.target.activeFocus

    anchors.fill: parent
    anchors.margins: -3
    radius: Theme.radius
    color: "transparent"
    border.width: 2
    border.color: Theme.focus
    visible: root.shown
    Accessible.ignored: true
}
