import QtQuick
import QtQuick.Layouts
import Kestrel

// The groups that were found, one at a time as a timeline, to be heard, checked and corrected.
Panel {
    id: root

    required property ResultModel result
    required property real framesPerSecond
    property TimelineModel shown: null
    signal againWanted(var recordings)
    property int shownGroup: 0
    readonly property bool usable: root.visible && root.shown !== null
    readonly property bool pairable: timeline.selection.length === 2 && root.pairOverlap().length > 0

    function show(row: int) {
        root.shownGroup = Math.max(0, Math.min(row, root.result.rowCount() - 1));
        root.shown = root.result.timeline(root.shownGroup);
    }

    function pairRows(): var {
        return timeline.selection.map(one => root.shown.rowOf(one));
    }

    // the stretch that both selected clips cover; empty if there is none
    function pairOverlap(): var {
        const rows = root.pairRows();
        const both = root.shown ? root.shown.overlap(rows[0], rows[1]) : [0, 0];
        return both[1] > both[0] ? both : [];
    }

    function togglePair() {
        const rows = root.pairRows();
        if (player.pair || !root.pairable)
            player.setPair(-1, -1);
        else
            player.setPair(rows[0], rows[1]);
    }

    function toggleLoop() {
        const both = root.pairable ? root.pairOverlap() : [0, 0];
        if (player.loopEnd > player.loopBegin)
            player.setLoop(0, 0);
        else
            player.setLoop(both[0], both[1]);
    }

    function nextUnsure() {
        for (let i = 0; i < root.result.rowCount() && !timeline.nextUnsure(); ++i)
            root.show((root.shownGroup + 1) % root.result.rowCount());
    }

    function placeHere(recording: int) {
        Workspace.place(recording, root.shown.group(), root.shown.origin() + player.position);
        timeline.choose(recording, false);
        timeline.forceActiveFocus();
    }

    function focusTimeline() {
        timeline.forceActiveFocus(Qt.TabFocusReason);
        if (timeline.current === 0)
            timeline.go(0, false);
    }

    Connections {
        target: root.result
        function onChanged() {
            const row = timeline.current > 0 ? root.result.groupOf(timeline.current) : -1;
            root.show(row >= 0 ? row : root.shownGroup);
        }
    }

    Component.onCompleted: root.show(0)

    Player {
        id: player

        timeline: root.shown
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 14
        spacing: 10
        visible: root.shown !== null

        RowLayout {
            spacing: 8

            ListView {
                id: groups

                Layout.fillWidth: true
                Layout.preferredHeight: 32
                orientation: ListView.Horizontal
                boundsBehavior: Flickable.StopAtBounds
                spacing: 6
                clip: true
                model: root.result
                delegate: GroupTab {
                    id: tab

                    shown: root.shownGroup === tab.index
                    onClicked: root.show(tab.index)
                }
            }

            AppButton {
                objectName: "nextUnsure"
                visible: root.result.unsureCount > 0
                implicitHeight: 32
                text: qsTr("Next to look at (%1)").arg(root.result.unsureCount)
                hint: qsTr("The next clip whose place is in doubt (F8)")
                onClicked: root.nextUnsure()
            }

            AppButton {
                implicitWidth: 32
                implicitHeight: 32
                text: "−"
                Accessible.name: qsTr("Zoom out")
                onClicked: timeline.zoomBy(1 / 1.5)
            }

            AppButton {
                implicitHeight: 32
                text: qsTr("Fit")
                hint: qsTr("The whole group in view (F)")
                onClicked: timeline.fit()
            }

            AppButton {
                implicitWidth: 32
                implicitHeight: 32
                text: "+"
                Accessible.name: qsTr("Zoom in")
                onClicked: timeline.zoomBy(1.5)
            }
        }

        TimelineView {
            id: timeline

            objectName: "timeline"
            Layout.fillWidth: true
            Layout.fillHeight: true
            timeline: root.shown
            player: player
            framesPerSecond: root.framesPerSecond
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 8

            Transport {
                Layout.fillWidth: true
                player: player
                pairable: root.pairable
                onPairWanted: root.togglePair()
                onLoopWanted: root.toggleLoop()
            }

            UndoButtons {}
        }

        ClipStrip {
            objectName: "strip"
            Layout.fillWidth: true
            recording: timeline.current
            selection: timeline.selection.length > 0 ? timeline.selection : [timeline.current]
            framesPerSecond: root.framesPerSecond
            onAgainWanted: recordings => root.againWanted(recordings)
        }
    }

    EndWords {
        anchors.centerIn: parent
        width: Math.min(parent.width - 60, 440)
        visible: root.shown === null
        result: root.result
    }

    readonly property var chosen: timeline.selection.length > 0 ? timeline.selection : timeline.current > 0 ? [timeline.current] : []
    readonly property var shortcuts: [[["Space"], () => player.toggle()], [["A"], () => root.togglePair()], [["L"],
            () => root.toggleLoop()], [["F8"], () => root.nextUnsure()], [["C"], () => Workspace.confirm(root.chosen)], [["P"],
            () => Workspace.pin(root.chosen)], [["X"], () => Workspace.exclude(root.chosen)], [[","],
            () => Workspace.move(root.chosen, -1 / root.framesPerSecond)], [["."], () => Workspace.move(
                                                                                        root.chosen, 1 / root.framesPerSecond)],
        [["Shift+,", "<"], () => Workspace.move(root.chosen, -0.001)], [["Shift+.", ">"], () => Workspace.move(
                                                                                                root.chosen, 0.001)], [["N"],
            () => Workspace.toNextPlace(timeline.current)], [["Delete"], () => Workspace.unplace(root.chosen)]]

    Repeater {
        model: root.shortcuts.length

        Item {
            id: key

            required property int index
            readonly property var keys: root.shortcuts[key.index][0]

            Shortcut {
                sequences: key.keys
                enabled: root.usable && (timeline.activeFocus || key.keys[0] === "F8")
                onActivated: root.shortcuts[key.index][1]()
            }
        }
    }
}
