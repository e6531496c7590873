import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T

// Asks before something is lost.
Popup {
    id: root

    required property string question
    required property string action
    property string keepText: qsTr("Keep")
    signal confirmed

    anchors.centerIn: T.Overlay.overlay
    modal: true
    focus: true
    padding: 24
    width: 400
    onOpened: keep.forceActiveFocus(Qt.TabFocusReason)

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
        spacing: 20

        AppText {
            Layout.fillWidth: true
            text: root.question
            font.pixelSize: Theme.heading
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: 10

            AppButton {
                id: keep

                text: root.keepText
                onClicked: root.close()
            }

            AppButton {
                objectName: "confirm"
                weight: AppButton.Primary
                implicitHeight: Theme.control
                text: root.action
                onClicked: {
                    root.close();
                    root.confirmed();
                }
            }
        }
    }
}
