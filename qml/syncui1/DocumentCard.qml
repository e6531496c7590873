import QtQuick
import QtQuick.Layouts

// A timeline document: the program that reads it, its name, and the way to its folder.
Rectangle {
    id: root

    required property string name
    required property string path
    required property string purpose
    required property string content
    signal openWanted

    implicitHeight: 60
    radius: 8
    color: Theme.raised
    Accessible.role: Accessible.ListItem
    Accessible.name: root.purpose + ". " + root.content + ". " + root.name

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 6
        spacing: 6

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            AppText {
                Layout.fillWidth: true
                text: root.purpose
                font.weight: Font.DemiBold
                elide: Text.ElideRight
            }

            AppText {
                Layout.fillWidth: true
                text: root.content
                color: Theme.dim
                font.pixelSize: Theme.small
                elide: Text.ElideRight
            }
        }

        AppButton {
            weight: AppButton.Quiet
            implicitHeight: 32
            text: qsTr("Show")
            hint: root.name
            Accessible.name: qsTr("Show %1 in its folder").arg(root.name)
            onClicked: root.openWanted()
        }
    }
}
