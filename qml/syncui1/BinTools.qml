import QtQuick
import QtQuick.Layouts
import Kestrel

// What can be done to the selected devices and recordings.
RowLayout {
    id: root

    required property BinModel bins
    signal renameWanted

    spacing: 6

    component Tool: AppButton {
        implicitHeight: 28
        font.pixelSize: Theme.small
    }

    Tool {
        objectName: "renameButton"
        text: qsTr("Rename")
        hint: qsTr("Gives the device a name, which the timelines will carry (F2)")
        enabled: root.bins.selectedRecordings > 0
        onClicked: root.renameWanted()
    }

    Tool {
        objectName: "joinButton"
        text: qsTr("Join")
        hint: qsTr("Makes one device of the selected ones (Ctrl+J)")
        enabled: root.bins.selectedDevices > 1
        onClicked: root.bins.join()
    }

    Tool {
        objectName: "splitButton"
        text: root.bins.selectedDevices > 0 ? qsTr("Take apart") : qsTr("New device")
        hint: root.bins.selectedDevices > 0 ? qsTr("Makes a device of every clip (Ctrl+Shift+J)") : qsTr(
                                                  "Makes a device of the selected clips (Ctrl+Shift+J)")
        enabled: root.bins.selectedRecordings > 0
        onClicked: root.bins.split()
    }

    Tool {
        text: qsTr("Remove")
        hint: qsTr("Takes the selected lines off the list (Delete)")
        enabled: root.bins.selectedRecordings > 0
        onClicked: root.bins.remove()
    }

    Item {
        Layout.fillWidth: true
    }

    UndoButtons {}
}
