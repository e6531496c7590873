import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// A choice between yes and no, with a line that says what it does. Space and Enter turn it.
AbstractButton {
    id: root

    property string help: ""
    signal turned(bool on)

    function turn() {
        root.turned(!root.checked);
    }

    implicitHeight: root.implicitContentHeight
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.text
    Accessible.description: root.help
    Accessible.checkable: true
    Accessible.checked: root.checked
    onClicked: root.turn()
    Keys.onReturnPressed: root.turn()
    Keys.onEnterPressed: root.turn()

    contentItem: RowLayout {
        spacing: 10

        Rectangle {
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 20
            Layout.preferredHeight: 20
            radius: 5
            color: root.checked ? Theme.accent : root.hovered ? Theme.hover : Theme.raised
            border.width: root.checked ? 0 : 1
            border.color: Theme.mark

            AppText {
                anchors.centerIn: parent
                visible: root.checked
                text: "✓"
                color: Theme.accentText
                font.weight: Font.Bold
                Accessible.ignored: true
            }

            FocusRing {
                target: parent
                radius: 7
                shown: root.visualFocus
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            AppText {
                Layout.fillWidth: true
                Layout.minimumHeight: 20
                text: root.text
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }

            AppText {
                Layout.fillWidth: true
                visible: root.help !== ""
                text: root.help
                color: Theme.dim
                font.pixelSize: Theme.small
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }
    }
}
