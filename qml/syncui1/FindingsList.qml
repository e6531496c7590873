import QtQuick
import QtQuick.Controls.Basic

// A list that says so when it is empty.
ListView {
    id: root

    required property string nothing

    clip: true
    spacing: 8
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: count > 0
    Accessible.role: Accessible.List
    ScrollBar.vertical: AppScrollBar {}

    AppText {
        parent: root
        width: parent.width
        visible: root.count === 0
        text: root.nothing
        color: Theme.dim
        topPadding: 8
        wrapMode: Text.Wrap
    }

    FocusRing {
        parent: root
        target: root
        shown: root.activeFocus
    }
}
