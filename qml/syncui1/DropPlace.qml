import QtQuick

// Takes files and folders that are dropped on the list; with Shift held they are one device.
DropArea {
    id: root

    property bool searching: false
    signal filesDropped(var urls, bool oneDevice)

    keys: ["text/uri-list"]
    onDropped: drop => {
        root.filesDropped(drop.urls, drop.proposedAction === Qt.MoveAction);
        drop.accept(Qt.CopyAction);
    }

    Rectangle {
        anchors.fill: parent
        visible: root.containsDrag || root.searching
        radius: Theme.radius
        color: "#e01b1e24"
        border.width: 2
        border.color: Theme.accent

        AppText {
            anchors.centerIn: parent
            text: root.searching ? qsTr("Searching the folders …") : qsTr("Drop to add; hold Shift for one camera or recorder")
            font.pixelSize: 18
            font.weight: Font.DemiBold
        }
    }
}
