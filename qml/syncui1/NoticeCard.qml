import QtQuick

// Something else to know about a run.
Rectangle {
    id: root

    required property string notice

    implicitHeight: label.implicitHeight + 24
    radius: 8
    color: Theme.raised
    Accessible.role: Accessible.ListItem
    Accessible.name: root.notice

    AppText {
        id: label

        x: 12
        y: 12
        width: parent.width - 24
        text: root.notice
        font.pixelSize: Theme.small
        lineHeight: 1.2
        wrapMode: Text.Wrap
    }
}
