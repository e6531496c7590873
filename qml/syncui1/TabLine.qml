import QtQuick

// Chooses one of a few lists and says how long each is; the arrow keys go from one to the next.
Row {
    id: root

    required property var names
    property var counts: []
    property int current: 0

    function go(to: int) {
        root.current = Math.max(0, Math.min(root.names.length - 1, to));
        tabs.itemAt(root.current).forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: 2
    Keys.onLeftPressed: root.go(root.current - 1)
    Keys.onRightPressed: root.go(root.current + 1)

    Repeater {
        id: tabs

        model: root.names

        AppButton {
            id: tab

            required property int index
            required property string modelData

            implicitHeight: 30
            weight: AppButton.Quiet
            lit: root.current === tab.index
            activeFocusOnTab: tab.lit
            font.pixelSize: Theme.small
            text: root.counts[tab.index] > 0 ? tab.modelData + "  " + root.counts[tab.index] :
                                               tab.modelData
            Accessible.role: Accessible.PageTab
            Accessible.selected: tab.lit
            onClicked: root.current = tab.index
        }
    }
}
