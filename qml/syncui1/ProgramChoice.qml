import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kestrel

// Which editing programs get timelines: a button with the choice in words, and under it the list.
ColumnLayout {
    id: root

    required property SyncSettings settings

    spacing: 5

    AppText {
        text: qsTr("Programs")
        font.weight: Font.Medium
    }

    AppButton {
        id: button

        objectName: "programsButton"
        Layout.fillWidth: true
        text: root.settings.programsText
        hint: list.visible ? "" : qsTr("Which editing programs get timelines")
        leftPadding: 12
        rightPadding: 12
        Accessible.name: qsTr("Programs: %1").arg(root.settings.programsText)
        Accessible.role: Accessible.ButtonDropDown
        onClicked: list.visible ? list.close() : list.open()
        Keys.onDownPressed: list.open()

        contentItem: AppText {
            text: button.text
            rightPadding: 16
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight

            AppText {
                x: parent.width - width
                y: (parent.height - height) / 2 - 3
                text: "⌄"
                color: Theme.dim
                font.pixelSize: 15
                Accessible.ignored: true
            }
        }

        Popup {
            id: list

            y: button.height + 4
            width: button.width
            padding: 12
            margins: 8
            focus: true
            closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutsideParent
            onOpened: names.itemAt(0).forceActiveFocus(Qt.TabFocusReason)
            background: Rectangle {
                color: Theme.raised
                border.color: Theme.line
                radius: 8
            }

            Column {
                width: parent.width
                spacing: 6

                Repeater {
                    id: names

                    model: root.settings.programNames

                    Tick {
                        id: name

                        required property int index
                        required property string modelData

                        width: parent.width
                        text: name.modelData
                        checked: root.settings.programs.includes(name.index)
                        onTurned: on => root.settings.setProgram(name.index, on)
                        Keys.onUpPressed: names.itemAt(Math.max(0, name.index - 1)).forceActiveFocus(
                                              Qt.TabFocusReason)
                        Keys.onDownPressed: names.itemAt(Math.min(names.count - 1, name.index + 1)).forceActiveFocus(
                                                Qt.TabFocusReason)
                    }
                }
            }
        }
    }
}
