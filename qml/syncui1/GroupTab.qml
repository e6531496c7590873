import QtQuick
import QtQuick.Controls.Basic

// Chooses one group.
AbstractButton {
    id: root

    // roles of ResultModel
    required property int index
    required property string name
    required property int count
    property bool shown: false

    implicitWidth: root.implicitContentWidth + 28
    implicitHeight: 32
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    text: qsTr("%1 · %2 recordings").arg(root.name).arg(root.count)
    padding: 0
    Accessible.role: Accessible.PageTab
    Accessible.name: root.text
    Keys.onReturnPressed: root.click()

    background: Rectangle {
        radius: 8
        color: root.shown ? Theme.line : root.hovered ? Theme.hover : Theme.raised
        border.width: root.visualFocus ? 2 : 0
        border.color: Theme.focus
    }
    contentItem: AppText {
        text: root.text
        color: root.shown ? Theme.text : Theme.dim
        font.weight: root.shown ? Font.DemiBold : Font.Normal
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
