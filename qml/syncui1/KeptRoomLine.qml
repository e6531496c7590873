import QtQuick
import QtQuick.Layouts
import Kestrel

// How much room the sounds of earlier runs take, and the way to give it back.
ColumnLayout {
    id: root

    spacing: 5
    onVisibleChanged: if (visible)
                          room.refresh()

    KeptRoom {
        id: room
    }

    AppText {
        text: qsTr("Kept sounds")
        font.weight: Font.Medium
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 10

        AppText {
            objectName: "keptSize"
            Layout.fillWidth: true
            text: room.any ? room.size : qsTr("None")
            color: Theme.dim
        }

        AppButton {
            objectName: "clearKept"
            implicitHeight: 28
            font.pixelSize: Theme.small
            text: qsTr("Clear")
            enabled: room.any
            Accessible.name: qsTr("Clear the kept sounds")
            onClicked: room.clear()
        }
    }

    AppText {
        Layout.fillWidth: true
        text: qsTr("What was heard once need not be heard again.")
        color: Theme.dim
        font.pixelSize: Theme.small
        wrapMode: Text.Wrap
    }
}
