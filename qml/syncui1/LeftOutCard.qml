import QtQuick
import QtQuick.Layouts

// A recording without a place: why, and what to do about it.
Rectangle {
    id: root

    required property string name
    required property string path
    required property string kind
    required property string reason
    required property string remedy

    implicitHeight: content.implicitHeight + 24
    radius: 8
    color: Theme.raised
    Accessible.role: Accessible.ListItem
    Accessible.name: root.name + ". " + root.kind + ". " + root.reason + " " + root.remedy

    ColumnLayout {
        id: content

        x: 12
        y: 12
        width: parent.width - 24
        spacing: 4

        AppText {
            Layout.fillWidth: true
            text: root.name
            font.weight: Font.DemiBold
            elide: Text.ElideMiddle
        }

        AppText {
            Layout.fillWidth: true
            text: root.kind
            color: Theme.warning
            font.pixelSize: Theme.small
        }

        AppText {
            Layout.fillWidth: true
            text: root.reason
            wrapMode: Text.Wrap
            font.pixelSize: Theme.small
            lineHeight: 1.2
        }

        AppText {
            Layout.fillWidth: true
            visible: root.remedy !== ""
            text: root.remedy
            color: Theme.dim
            wrapMode: Text.Wrap
            font.pixelSize: Theme.small
            lineHeight: 1.2
        }
    }
}
