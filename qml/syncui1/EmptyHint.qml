import QtQuick
import QtQuick.Layouts

// What to do while the list is empty.
ColumnLayout {
    id: root

    spacing: 10

    Image {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: 8
        source: "images/drop.png"
        Accessible.ignored: true
    }

    AppText {
        Layout.fillWidth: true
        text: qsTr("Drop your recordings here")
        font.pixelSize: 18
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
    }

    AppText {
        Layout.fillWidth: true
        text: qsTr("Files or folders of every camera and sound recorder that was at the event. "
                   + "Kestrel listens to them and puts each at its place in time.")
        color: Theme.dim
        wrapMode: Text.Wrap
        lineHeight: 1.3
        horizontalAlignment: Text.AlignHCenter
    }
}
