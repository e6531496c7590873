import QtQuick
import QtQuick.Layouts
import Kestrel

// The devices with their recordings, what adds to them and what sorts them.
Panel {
    id: root

    required property BinModel bins
    property string notice: ""
    readonly property int count: root.bins.recordings
    readonly property string countText: qsTr("%n recording(s)", "", root.count) + " · "
                                        + qsTr("%n device(s)", "", root.bins.devices)
                                        + (root.bins.length !== "" ? " · " + root.bins.length : "")
    signal filesWanted
    signal deviceWanted
    signal folderWanted
    signal clearWanted

    function focusList() {
        if (root.count > 0)
            list.forceActiveFocus(Qt.TabFocusReason);
        else
            addFolder.forceActiveFocus(Qt.OtherFocusReason);
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 10

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
                text: root.count > 0 ? root.countText : ""
                color: Theme.dim
                elide: Text.ElideRight
            }

            AppButton {
                objectName: "clearButton"
                weight: AppButton.Quiet
                visible: root.count > 0
                text: qsTr("Clear list")
                implicitHeight: 30
                onClicked: root.clearWanted()
            }
        }

        BinTools {
            Layout.fillWidth: true
            visible: root.count > 0
            bins: root.bins
            onRenameWanted: list.rename()
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            BinList {
                id: list

                objectName: "recordings"
                anchors.fill: parent
                bins: root.bins
            }

            EmptyHint {
                anchors.centerIn: parent
                width: Math.min(parent.width - 40, 420)
                visible: root.count === 0
            }
        }

        AppText {
            Layout.fillWidth: true
            visible: root.notice !== ""
            text: root.notice
            color: Theme.warning
            font.pixelSize: Theme.small
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: root.notice
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 8

            AppButton {
                id: addFolder

                objectName: "addFolder"
                text: qsTr("Add folders")
                hint: qsTr("Each folder with clips of one kind becomes a device (Ctrl+D)")
                onClicked: root.folderWanted()
            }

            AppButton {
                objectName: "addFiles"
                text: qsTr("Add files")
                hint: qsTr("Recordings of any cameras and recorders (Ctrl+O)")
                onClicked: root.filesWanted()
            }

            AppButton {
                objectName: "addDevice"
                Layout.fillWidth: true
                Layout.maximumWidth: implicitWidth
                text: qsTr("Add one device")
                hint: qsTr("All clips of one camera or recorder, which never overlap each other (Ctrl+Shift+O)")
                onClicked: root.deviceWanted()
            }

            Item {
                Layout.fillWidth: true
            }
        }
    }
}
