import QtQuick

// Does something when what led to it has ended, such as the release of the button that was pressed.
Timer {
    id: root

    property var work: null

    function call(work: var) {
        root.work = work;
        root.restart();
    }

    interval: 0
    onTriggered: {
        const work = root.work;
        work();
    }
}
