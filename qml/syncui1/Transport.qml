import QtQuick
import QtQuick.Layouts
import Kestrel

// Playing: from the playhead on, all of it or the selected pair, over and over.
RowLayout {
    id: root

    required property Player player
    property bool pairable: false  // two clips are selected that stand at the same time
    signal pairWanted
    signal loopWanted

    spacing: 8

    AppButton {
        objectName: "playButton"
        implicitWidth: Math.max(64, implicitContentWidth + 28)
        implicitHeight: 32
        text: root.player.playing ? qsTr("Stop") : qsTr("Play")
        hint: qsTr("From the playhead on (Space)")
        lit: root.player.playing
        onClicked: root.player.toggle()
    }

    AppText {
        text: TimeScale.text(root.player.position, 3)
        Accessible.name: qsTr("Playhead at %1").arg(text)
    }

    AppButton {
        objectName: "pairButton"
        implicitHeight: 32
        text: qsTr("A left, B right")
        hint: qsTr("The two selected clips alone, one on either side: an echo tells a wrong place (A)")
        enabled: root.pairable || root.player.pair
        lit: root.player.pair
        onClicked: root.pairWanted()
    }

    AppButton {
        objectName: "loopButton"
        implicitHeight: 32
        text: qsTr("Loop")
        hint: qsTr("The stretch in which the selected clips overlap, over and over (L)")
        enabled: root.pairable || root.player.loopEnd > root.player.loopBegin
        lit: root.player.loopEnd > root.player.loopBegin
        onClicked: root.loopWanted()
    }

    AppText {
        Layout.fillWidth: true
        text: root.player.problem
        color: Theme.warning
        font.pixelSize: Theme.small
        elide: Text.ElideRight
    }
}
