import QtQuick
import QtQuick.Controls.Basic

// A short explanation beside what the pointer rests on.
ToolTip {
    id: root

    delay: 600
    padding: 10

    contentItem: AppText {
        text: root.text
        font.pixelSize: Theme.small
        lineHeight: 1.25
    }
    background: Rectangle {
        color: Theme.hint
        border.color: Theme.line
        radius: 6
    }
}
