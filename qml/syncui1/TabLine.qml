import QtQuick
import QtQuick.Controls.Basic

// Chooses one of a few lists and says how long each is.
Row {
    id: root

    required property var names
    required property var counts
    property int current: 0

    spacing: 4

    Repeater {
        model: root.names

        AbstractButton {
            id: tab

            required property int index
            required property string modelData
            readonly property bool shown: root.current === tab.index

            implicitHeight: 32
            implicitWidth: tab.implicitContentWidth + 20
            padding: 0
            focusPolicy: Qt.StrongFocus
            hoverEnabled: true
            text: root.counts[tab.index] > 0 ? tab.modelData + "  " + root.counts[tab.index] :
                                               tab.modelData
            Accessible.role: Accessible.PageTab
            Accessible.name: tab.text
            Keys.onReturnPressed: tab.click()
            onClicked: root.current = tab.index

            background: Rectangle {
                radius: 8
                color: tab.shown ? Theme.line : tab.hovered ? Theme.hover : "transparent"
                border.width: tab.visualFocus ? 2 : 0
                border.color: Theme.focus
            }
            contentItem: AppText {
                text: tab.text
                color: tab.shown ? Theme.text : Theme.dim
                font.pixelSize: Theme.small
                font.weight: tab.shown ? Font.DemiBold : Font.Normal
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
            }
        }
    }
}
