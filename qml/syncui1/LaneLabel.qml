import QtQuick

// Which device a lane belongs to, and whether it is heard. A double click renames the device.
Item {
    id: root

    required property int index
    required property string modelData
    property bool solo: false
    property bool mute: false
    property bool renaming: false
    signal soloWanted
    signal muteWanted
    signal renamed(string name)

    component Switch: AppButton {
        implicitWidth: 22
        implicitHeight: 20
        font.pixelSize: 10
        focusPolicy: Qt.TabFocus
        Accessible.checkable: true
        Accessible.checked: lit
    }

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 3
        height: 34
        radius: 2
        color: Theme.lane(root.index)
    }

    AppText {
        x: 10
        width: root.width - 12
        height: root.height > 54 ? root.height / 2 : root.height - 24
        visible: !root.renaming
        text: root.modelData
        font.pixelSize: Theme.small
        font.weight: Font.Medium
        wrapMode: Text.WrapAnywhere
        maximumLineCount: root.height > 70 ? 2 : 1
        elide: Text.ElideRight
        verticalAlignment: Text.AlignBottom

        TapHandler {
            onDoubleTapped: root.renaming = true
        }
    }

    NameField {
        x: 8
        y: 4
        width: root.width - 8
        visible: root.renaming
        name: root.modelData
        onNameGiven: text => root.renamed(text)
        onEnded: root.renaming = false
    }

    Row {
        x: 10
        y: (root.height > 54 ? root.height / 2 : root.height - 24) + 4
        spacing: 4

        Switch {
            text: qsTr("S", "solo")
            hint: qsTr("Only this lane is heard")
            lit: root.solo
            Accessible.name: qsTr("Solo %1").arg(root.modelData)
            onClicked: root.soloWanted()
        }

        Switch {
            text: qsTr("M", "mute")
            hint: qsTr("This lane is not heard")
            lit: root.mute
            Accessible.name: qsTr("Mute %1").arg(root.modelData)
            onClicked: root.muteWanted()
        }
    }
}
