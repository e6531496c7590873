import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// Choices one below the other, which scroll where there is no room; what has the focus is shown.
Flickable {
    id: root

    default property alias choices: holder.data
    readonly property Item focused: root.Window.activeFocusItem

    function follow() {
        let item = root.focused;
        while (item && item !== holder)
            item = item.parent;
        if (!item)
            return;
        const top = root.focused.mapToItem(holder, 0, 0).y;
        const bottom = top + root.focused.height;
        root.contentY = Math.max(0, Math.min(root.contentY, top - 30), bottom + 30 - root.height);
        root.returnToBounds();
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    contentHeight: holder.implicitHeight
    onFocusedChanged: root.follow()
    ScrollBar.vertical: AppScrollBar {}

    ColumnLayout {
        id: holder

        width: root.width - 12
        spacing: 14
    }
}
