import QtQuick
import QtQuick.Controls.Basic

// A slim bar that says where a list stands.
ScrollBar {
    id: root

    padding: 2
    minimumSize: 0.06
    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: root.pressed || root.hovered ? Theme.dim : Theme.mark
        visible: root.size < 1
    }
}
