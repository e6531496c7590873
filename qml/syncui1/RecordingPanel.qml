import QtQuick
import QtQuick.Layouts
import Kestrel

// The list of recordings, what adds to it and what takes off it.
Panel {
    id: root

    required property RecordingModel recordings
    property string notice: ""
    readonly property int count: root.recordings.recordings
    readonly property string countText: (root.count === 1 ? qsTr("1 file") : qsTr("%1 files").arg(
                                                                root.count)) + " · "
                                        + (root.recordings.devices === 1 ? qsTr("1 device") : qsTr(
                                                                               "%1 devices").arg(
                                                                               root.recordings.devices))
    signal filesWanted
    signal deviceWanted
    signal clearWanted

    function focusList() {
        list.forceActiveFocus();
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 20
        anchors.bottomMargin: 16
        spacing: 12

        RowLayout {
            Layout.fillWidth: true
            Layout.preferredHeight: 30
            spacing: 12

            AppText {
                text: qsTr("Recordings")
                font.pixelSize: Theme.heading
                font.weight: Font.DemiBold
            }

            AppText {
                Layout.fillWidth: true
                Layout.alignment: Qt.AlignBaseline
                visible: root.count > 0
                text: root.countText
                color: Theme.dim
                elide: Text.ElideRight
            }

            Item {
                Layout.fillWidth: true
            }

            AppButton {
                objectName: "clearButton"
                weight: AppButton.Quiet
                visible: list.count > 0
                text: qsTr("Clear list")
                implicitHeight: 30
                onClicked: root.clearWanted()
            }
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            RecordingList {
                id: list

                objectName: "recordings"
                anchors.fill: parent
                model: root.recordings
                onRemoveWanted: row => root.recordings.remove(row)
            }

            EmptyHint {
                anchors.centerIn: parent
                width: Math.min(parent.width - 40, 420)
                visible: list.count === 0
            }
        }

        AppText {
            Layout.fillWidth: true
            visible: root.notice !== ""
            text: root.notice
            color: Theme.warning
            font.pixelSize: Theme.small
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            AppButton {
                objectName: "addFiles"
                text: qsTr("Add files")
                hint: qsTr("Recordings of any cameras and recorders (Ctrl+O)")
                onClicked: root.filesWanted()
            }

            AppButton {
                objectName: "addDevice"
                text: qsTr("Add one camera or recorder")
                hint: qsTr("All clips of one device, which never overlap each other (Ctrl+Shift+O)")
                onClicked: root.deviceWanted()
            }

            Item {
                Layout.fillWidth: true
            }
        }
    }
}
