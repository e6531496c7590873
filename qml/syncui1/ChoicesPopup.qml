import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Kestrel

// After a run: other programs, another folder, another rate, and the timelines are written again.
Popup {
    id: root

    required property SyncSettings settings
    signal writeWanted

    parent: T.Overlay.overlay
    anchors.centerIn: T.Overlay.overlay
    modal: true
    focus: true
    padding: 20
    width: 400
    height: Math.min(680, parent ? parent.height - 40 : 680)
    onOpened: write.forceActiveFocus(Qt.TabFocusReason)

    T.Overlay.modal: Rectangle {
        color: "#a0000000"
    }
    background: Rectangle {
        color: Theme.panel
        border.color: Theme.line
        radius: 12
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 16

        AppText {
            text: qsTr("Timelines")
            font.pixelSize: Theme.heading
            font.weight: Font.DemiBold
        }

        ChoicesView {
            Layout.fillWidth: true
            Layout.fillHeight: true

            TimelineChoices {
                Layout.fillWidth: true
                settings: root.settings
                usualFolder: Workspace.result.folder
                folderButton: "popupFolderButton"
            }
        }

        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: 10

            AppButton {
                text: qsTr("Close")
                onClicked: root.close()
            }

            AppButton {
                id: write

                objectName: "writeButton"
                weight: AppButton.Primary
                implicitHeight: Theme.control
                text: qsTr("Write timelines")
                onClicked: {
                    root.close();
                    root.writeWanted();
                }
            }
        }
    }
}
