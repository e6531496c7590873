import QtQuick
import QtQuick.Controls.Basic

// The recordings; the arrow keys choose one, Delete takes it off.
ListView {
    id: root

    signal removeWanted(int row)

    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 200
    currentIndex: -1
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Recordings")
    ScrollBar.vertical: AppScrollBar {}
    onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0)
                              currentIndex = 0
    Keys.onDeletePressed: if (root.currentIndex >= 0)
                              root.removeWanted(root.currentIndex)

    delegate: RecordingRow {
        id: row

        width: ListView.view.width - 10
        current: ListView.isCurrentItem && root.activeFocus
        onChosen: {
            root.currentIndex = row.index;
            root.forceActiveFocus();
        }
        onRemoveWanted: root.removeWanted(row.index)
    }

    FocusRing {
        parent: root
        target: root
        shown: root.activeFocus && root.count === 0
    }
}
