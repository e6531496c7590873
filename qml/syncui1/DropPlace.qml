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
        color: Theme.veil
        border.width: 2
        border.color: Theme.accent

        AppText {
            anchors.fill: parent
            anchors.margins: 24
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.Wrap
            text: root.searching ? qsTr("Searching the folders …") : qsTr(
                                       "Drop to add; hold Shift if all of it is from one camera or recorder")
            font.pixelSize: 18
            font.weight: Font.DemiBold
        }
    }
}
