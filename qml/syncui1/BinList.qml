import QtQuick
import QtQuick.Controls.Basic
import Kestrel

// The devices and their recordings. Arrow keys choose a line (with Shift several), Left and Right
// close and open a device, F2 renames it, Delete takes lines off; lines can be dragged to another
// device, or below the last one for a new one.
ListView {
    id: root

    required property BinModel bins
    property int renamedRow: -1
    property int targetRow: -1

    function go(to: int, extend: bool) {
        if (root.count === 0)
            return;
        root.currentIndex = Math.max(0, Math.min(root.count - 1, to));
        root.bins.select(root.currentIndex, false, extend);
    }

    function rename() {
        let row = root.currentIndex;
        while (row > 0 && !root.bins.data(root.bins.index(row, 0), BinModel.IsDeviceRole))
            --row;
        root.positionViewAtIndex(row, ListView.Contain);
        root.renamedRow = row;
    }

    // the row below a place of the list; behind the last row where there is none
    function rowAt(y: real): int {
        const row = root.indexAt(10, y);
        return row < 0 ? root.count : row;
    }

    model: root.bins
    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 200
    currentIndex: -1
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Devices and recordings")
    ScrollBar.vertical: AppScrollBar {}
    onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0)
                              root.go(0, false)
    Keys.onPressed: event => {
        const extend = (event.modifiers & Qt.ShiftModifier) !== 0;
        const collapsed = root.currentItem ? root.currentItem.collapsed : false;
        if (event.key === Qt.Key_Down)
            root.go(root.currentIndex + 1, extend);
        else if (event.key === Qt.Key_Up)
            root.go(root.currentIndex - 1, extend);
        else if (event.key === Qt.Key_Home)
            root.go(0, extend);
        else if (event.key === Qt.Key_End)
            root.go(root.count - 1, extend);
        else if (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace)
            root.bins.remove();
        else if (event.key === Qt.Key_F2)
            root.rename();
        else if ((event.key === Qt.Key_Left && !collapsed) || (event.key === Qt.Key_Right && collapsed))
            root.bins.toggleCollapsed(root.currentIndex);
        else if (event.key === Qt.Key_A && (event.modifiers & Qt.ControlModifier))
            root.bins.selectAll();
        else
            return;
        event.accepted = true;
    }

    delegate: BinRow {
        id: row

        width: ListView.view.width - 10
        current: ListView.isCurrentItem && root.activeFocus
        renaming: root.renamedRow === row.index
        target: root.targetRow === row.index
        onChosen: (toggle, extend) => {
            root.currentIndex = row.index;
            root.bins.select(row.index, toggle, extend);
            root.forceActiveFocus();
        }
        onCollapseWanted: root.bins.toggleCollapsed(row.index)
        onRenameWanted: root.renamedRow = row.index
        onRenamed: name => root.bins.rename(row.index, name)
        onRenameEnded: {
            root.renamedRow = -1;
            root.forceActiveFocus();
        }
        onDragMoved: y => root.targetRow = root.rowAt(row.y + y)
        onDragEnded: y => {
            root.targetRow = -1;
            root.bins.moveTo(root.rowAt(row.y + y));
        }
    }

    FocusRing {
        parent: root
        target: root
        shown: root.activeFocus && root.count === 0
    }
}
