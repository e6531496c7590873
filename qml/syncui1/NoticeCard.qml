import QtQuick

// Something else to know about a run.
Rectangle {
    id: root

    required property string notice
    required property bool failed  // something that was asked for is not there

    implicitHeight: label.implicitHeight + 24
    radius: 8
    color: Theme.raised
    Accessible.role: Accessible.ListItem
    Accessible.name: root.failed ? qsTr("Failed: %1").arg(root.notice) : root.notice

    AppText {
        id: label

        x: 12
        y: 12
        width: parent.width - 24
        text: root.notice
        color: root.failed ? Theme.danger : Theme.text
        font.pixelSize: Theme.small
        lineHeight: 1.2
        wrapMode: Text.Wrap
    }
}
