import QtQuick
import QtQuick.Controls.Basic
import Kestrel

// One group as a picture: a lane per device, the clips at their places, a ruler above, the playhead.
// A click selects a clip, with Ctrl several; dragging moves the selected ones. The wheel zooms about
// the pointer, with Shift it goes along. The keys are those of the help in docs/window.md.
FocusScope {
    id: root

    property TimelineModel timeline: null
    required property Player player
    property var selection: []
    property int current: 0             // the recording that the keys act on
    property real pixelsPerSecond: 1
    property real viewStart: 0          // seconds at the left edge
    property real laneOffset: 0
    property bool fitted: true          // follows the size of the window until the user zooms
    property real framesPerSecond: 25
    property real dragged: 0            // seconds by which the selection is being moved
    readonly property real seconds: root.timeline ? Math.max(0.1, root.timeline.lengthSeconds) : 1
    readonly property real fitScale: Math.max(1, canvas.width - 12) / root.seconds
    readonly property real closest: 96000  // pixels a second: twelve for each sample
    readonly property int laneCount: root.timeline ? root.timeline.lanes.length : 0
    readonly property int rulerHeight: 26
    readonly property int labelWidth: Math.max(92, Math.min(150, root.width * 0.18))
    readonly property real laneHeight: Math.max(58, Math.min(104, (canvas.height - 8) / Math.max(1, root.laneCount)))
    readonly property real viewSeconds: canvas.width / root.pixelsPerSecond

    function fit() {
        root.fitted = true;
        root.pixelsPerSecond = root.fitScale;
        root.viewStart = 0;
    }

    // Zooms so that the moment at `x` of the view stays where it is.
    function zoomAt(factor: real, x: real) {
        const moment = root.viewStart + x / root.pixelsPerSecond;
        root.pixelsPerSecond = Math.max(root.fitScale, Math.min(root.closest, root.pixelsPerSecond * factor));
        root.fitted = root.pixelsPerSecond <= root.fitScale;
        root.scrollTo(moment - x / root.pixelsPerSecond);
    }

    function zoomBy(factor: real) {
        const x = (root.player.position - root.viewStart) * root.pixelsPerSecond;
        root.zoomAt(factor, x >= 0 && x <= canvas.width ? x : canvas.width / 2);
    }

    function scrollTo(seconds: real) {
        root.viewStart = Math.max(0, Math.min(root.seconds + 12 / root.pixelsPerSecond - root.viewSeconds,
                                              seconds));
    }

    function show(begin: real, end: real) {
        if (end < root.viewStart || begin > root.viewStart + root.viewSeconds)
            root.scrollTo(begin - root.viewSeconds / 10);
    }

    function choose(recording: int, add: bool) {
        const others = root.selection.filter(one => one !== recording);
        const had = others.length < root.selection.length;
        root.selection = recording === 0 ? [] : !add ? [recording] : had ? others : others.concat([recording]);
        root.current = recording;
    }

    function reveal(recording: int) {
        const row = root.timeline.rowOf(recording);
        if (row < 0)
            return;
        root.show(root.timeline.startOf(row), root.timeline.endOf(row));
        const top = root.timeline.data(root.timeline.index(row, 0), TimelineModel.LaneRole) * root.laneHeight;
        root.laneOffset = Math.max(Math.min(root.laneOffset, top), top + root.laneHeight - canvas.height, 0);
    }

    function go(by: int, add: bool) {
        const count = root.timeline ? root.timeline.clipCount : 0;
        if (count === 0)
            return;
        const row = root.timeline.rowOf(root.current);
        const next = row < 0 ? 0 : Math.max(0, Math.min(count - 1, row + by));
        root.choose(root.timeline.recordingAt(next), add);
        root.reveal(root.current);
    }

    function nextUnsure(): bool {
        const row = root.timeline ? root.timeline.nextUnsure(root.timeline.rowOf(root.current)) : -1;
        if (row < 0)
            return false;
        root.choose(root.timeline.recordingAt(row), false);
        root.reveal(root.current);
        root.player.position = root.timeline.startOf(row);
        root.forceActiveFocus();
        return true;
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: root.timeline ? qsTr("Timeline of %1").arg(root.timeline.name) : ""
    Accessible.description: root.current > 0 ? clipWords(Workspace.facts(root.current)) : ""
    function clipWords(facts: var): string {
        return [facts.name, facts.device, facts.place, facts.state].filter(text => text).join(", ");
    }
    onTimelineChanged: {
        root.selection = [];
        root.current = 0;
        root.laneOffset = 0;
        root.fit();
    }
    onFitScaleChanged: if (root.fitted)
                           root.fit()
    Keys.onPressed: event => {
        const add = (event.modifiers & Qt.ShiftModifier) !== 0;
        if (event.modifiers & (Qt.ControlModifier | Qt.AltModifier))
            return;
        if (event.key === Qt.Key_Right || event.key === Qt.Key_Down)
            root.go(1, add);
        else if (event.key === Qt.Key_Left || event.key === Qt.Key_Up)
            root.go(-1, add);
        else if (event.key === Qt.Key_Home)
            root.player.position = 0;
        else if (event.key === Qt.Key_End)
            root.player.position = root.seconds;
        else if (event.key === Qt.Key_Plus || event.key === Qt.Key_Equal)
            root.zoomBy(1.5);
        else if (event.key === Qt.Key_Minus)
            root.zoomBy(1 / 1.5);
        else if (event.key === Qt.Key_F)
            root.fit();
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: root.player
        function onPositionChanged() {
            if (root.player.playing)
                root.show(root.player.position, root.player.position);
        }
    }

    TimeRuler {
        id: ruler

        x: root.labelWidth
        width: canvas.width
        height: root.rulerHeight
        offset: root.viewStart * root.pixelsPerSecond
        pixelsPerSecond: root.pixelsPerSecond

        // scrubbing
        MouseArea {
            anchors.fill: parent
            preventStealing: true
            onPressed: mouse => root.player.position = root.viewStart + mouse.x / root.pixelsPerSecond
            onPositionChanged: mouse => root.player.position = root.viewStart + mouse.x / root.pixelsPerSecond
        }
    }

    TimelineCanvas {
        id: canvas

        x: root.labelWidth
        y: root.rulerHeight
        width: root.width - root.labelWidth
        height: root.height - root.rulerHeight - 10
        timeline: root.timeline
        startSeconds: root.viewStart
        pixelsPerSecond: root.pixelsPerSecond
        laneHeight: root.laneHeight
        laneOffset: root.laneOffset
        framesPerSecond: root.framesPerSecond
        selection: root.selection
        current: root.activeFocus ? root.current : 0
        silentLanes: root.player.muted
        dragSeconds: root.dragged
        look: Theme.canvas
        clip: true

        MouseArea {
            id: mouse

            property real pressX: 0
            property int hit: 0

            anchors.fill: parent
            acceptedButtons: Qt.LeftButton
            preventStealing: true
            onPressed: event => {
                root.forceActiveFocus(Qt.MouseFocusReason);
                mouse.pressX = event.x;
                mouse.hit = canvas.recordingAt(event.x, event.y);
                const add = (event.modifiers & (Qt.ControlModifier | Qt.ShiftModifier)) !== 0;
                if (add || !root.selection.includes(mouse.hit))
                    root.choose(mouse.hit, add);
                else
                    root.current = mouse.hit;
                if (mouse.hit === 0)
                    root.player.position = root.viewStart + event.x / root.pixelsPerSecond;
            }
            onPositionChanged: event => {
                if (mouse.hit === 0)
                    return;
                const by = event.x - mouse.pressX;
                if (root.dragged === 0 && Math.abs(by) < 5)
                    return;
                const reach = (event.modifiers & Qt.AltModifier) ? 0 : 8 / root.pixelsPerSecond;
                root.dragged = Workspace.snapped(mouse.hit, by / root.pixelsPerSecond, reach);
            }
            onReleased: {
                const by = root.dragged;
                root.dragged = 0;
                if (by !== 0)
                    Workspace.move(root.selection, by);
            }
            onCanceled: root.dragged = 0
            onWheel: wheel => {
                if (wheel.modifiers & Qt.ControlModifier)
                    root.laneOffset = Math.max(0, Math.min(root.laneCount * root.laneHeight - canvas.height,
                                                           root.laneOffset - wheel.angleDelta.y / 2));
                else if (wheel.modifiers & Qt.ShiftModifier || wheel.angleDelta.x !== 0)
                    root.scrollTo(root.viewStart - (wheel.angleDelta.x || wheel.angleDelta.y) / root.pixelsPerSecond);
                else
                    root.zoomAt(Math.pow(1.0015, wheel.angleDelta.y), wheel.x);
            }
        }

        // where the sound of the current clip may fit as well
        Repeater {
            model: root.dragged !== 0 && root.current > 0 ? Workspace.likelyStarts(root.current) : []

            Rectangle {
                required property real modelData

                x: (modelData - root.viewStart) * root.pixelsPerSecond
                width: 2
                height: canvas.height
                color: Theme.good
                opacity: 0.6
            }
        }

        Rectangle {
            id: loopArea

            x: (root.player.loopBegin - root.viewStart) * root.pixelsPerSecond
            width: (root.player.loopEnd - root.player.loopBegin) * root.pixelsPerSecond
            height: canvas.height
            visible: width > 0
            color: Theme.accent
            opacity: 0.12
        }
    }

    Item {
        x: root.labelWidth
        width: canvas.width
        height: root.height - 10
        clip: true

        Rectangle {
            id: playhead

            objectName: "playhead"
            x: Math.round((root.player.position - root.viewStart) * root.pixelsPerSecond)
            width: 2
            height: parent.height
            color: Theme.accent

            Rectangle {
                x: -4
                width: 10
                height: 8
                radius: 2
                color: Theme.accent
            }
        }
    }

    Item {
        y: root.rulerHeight
        width: root.labelWidth
        height: canvas.height
        clip: true

        Repeater {
            model: root.timeline ? root.timeline.lanes : []

            LaneLabel {
                id: label

                y: label.index * root.laneHeight - root.laneOffset
                width: root.labelWidth - 8
                height: root.laneHeight - 4
                solo: root.player.solo.includes(label.index)
                mute: root.player.muted.includes(label.index)
                onSoloWanted: root.player.toggleSolo(label.index)
                onMuteWanted: root.player.toggleMute(label.index)
                onRenamed: name => Workspace.renameDevice(root.timeline.deviceOfLane(label.index), name)
            }
        }
    }

    AppScrollBar {
        x: root.labelWidth
        y: root.height - 10
        width: canvas.width
        orientation: Qt.Horizontal
        policy: ScrollBar.AlwaysOn
        size: Math.min(1, root.viewSeconds / root.seconds)
        position: root.viewStart / root.seconds
        onPositionChanged: if (pressed)
                               root.viewStart = position * root.seconds
    }

    FocusRing {
        target: root
        shown: root.activeFocus && root.current === 0
    }
}
