import QtQuick
import QtQuick.Layouts

// A recording without a place: why, what to do about it, and the way to do it.
Rectangle {
    id: root

    // roles of the left-out model
    required property int recording
    required property string name
    required property string path
    required property string kind
    required property bool usable
    required property string reason
    required property string remedy
    property bool placeable: false
    signal placeWanted

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
            visible: root.reason !== ""
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

        AppButton {
            Layout.topMargin: 4
            visible: root.placeable
            implicitHeight: 28
            font.pixelSize: Theme.small
            text: qsTr("Place at the playhead")
            hint: qsTr("Puts it into the group that is shown; then move it where it belongs")
            Accessible.name: qsTr("Place %1 at the playhead").arg(root.name)
            onClicked: root.placeWanted()
        }
    }
}
