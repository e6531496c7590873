import QtQuick
import QtQuick.Layouts

// The program's mark and name.
RowLayout {
    spacing: 12

    Image {
        source: "images/mark.png"
        Accessible.ignored: true
    }

    AppText {
        text: "Kestrel Aligner"
        font.pixelSize: 17
        font.weight: Font.DemiBold
    }

    AppText {
        Layout.fillWidth: true
        Layout.leftMargin: 4
        text: qsTr("lines up cameras and recorders by their sound")
        color: Theme.dim
        elide: Text.ElideRight
    }
}
