import QtQuick
import QtQuick.Controls.Basic
import Kestrel

// One group as a picture: a lane per device, the clips at their places, a ruler above. The wheel
// zooms about the pointer; arrow keys go from clip to clip, + and - zoom, F shows everything.
FocusScope {
    id: root

    property TimelineModel timeline: null
    property real pixelsPerSecond: 1
    property bool fitted: true  // follows the size of the window until the user zooms
    property int current: -1
    readonly property real seconds: root.timeline ? Math.max(0.1, root.timeline.lengthSeconds) : 1
    readonly property real fitScale: Math.max(1, view.width - 12) / root.seconds
    readonly property int laneCount: root.timeline ? root.timeline.lanes.length : 0
    readonly property int rulerHeight: 26
    readonly property int labelWidth: Math.max(84, Math.min(150, root.width * 0.18))
    readonly property real laneHeight: Math.max(58, Math.min(104, (root.height - rulerHeight - 12)
                                                             / Math.max(1, laneCount)))

    function fit() {
        root.fitted = true;
        root.pixelsPerSecond = root.fitScale;
        view.contentX = 0;
    }

    function zoomBy(factor) {
        root.zoomAt(factor, view.width / 2);
    }

    // Zooms so that the moment at `x` of the view stays where it is.
    function zoomAt(factor, x) {
        const moment = (view.contentX + x) / root.pixelsPerSecond;
        root.pixelsPerSecond = Math.max(root.fitScale, Math.min(400, root.pixelsPerSecond * factor));
        root.fitted = root.pixelsPerSecond <= root.fitScale;
        view.contentX = Math.max(0, Math.min(view.contentWidth - view.width,
                                             moment * root.pixelsPerSecond - x));
    }

    function go(by) {
        const count = clips.count;
        if (count === 0)
            return;
        root.current = Math.max(0, Math.min(count - 1, root.current + by));
        const clip = clips.itemAt(root.current);
        if (clip.x + clip.width < view.contentX || clip.x > view.contentX + view.width)
            view.contentX = Math.max(0, Math.min(view.contentWidth - view.width, clip.x - 20));
        view.contentY = Math.max(0, Math.min(view.contentHeight - view.height, clip.y - 20));
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: root.timeline ? qsTr("Timeline of %1").arg(root.timeline.name) : ""
    onTimelineChanged: {
        root.current = -1;
        root.fit();
    }
    onFitScaleChanged: if (root.fitted)
                           root.fit()
    Keys.onRightPressed: root.go(1)
    Keys.onDownPressed: root.go(1)
    Keys.onLeftPressed: root.go(-1)
    Keys.onUpPressed: root.go(-1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Plus || event.key === Qt.Key_Equal)
            root.zoomBy(1.5);
        else if (event.key === Qt.Key_Minus)
            root.zoomBy(1 / 1.5);
        else if (event.key === Qt.Key_F)
            root.fit();
        else
            return;
        event.accepted = true;
    }

    TimeRuler {
        x: root.labelWidth
        width: view.width
        height: root.rulerHeight
        offset: view.contentX
        pixelsPerSecond: root.pixelsPerSecond
    }

    Flickable {
        id: view

        x: root.labelWidth
        y: root.rulerHeight
        width: root.width - root.labelWidth
        height: root.height - root.rulerHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        contentWidth: Math.max(width, root.seconds * root.pixelsPerSecond + 12)
        contentHeight: root.laneCount * root.laneHeight
        ScrollBar.horizontal: AppScrollBar {}
        ScrollBar.vertical: AppScrollBar {}

        Repeater {
            model: root.laneCount

            Rectangle {
                id: laneSurface

                required property int index

                x: view.contentX
                y: laneSurface.index * root.laneHeight
                width: view.width
                height: root.laneHeight - 4
                radius: 6
                color: "#16191e"
            }
        }

        Repeater {
            id: clips

            model: root.timeline

            TimelineBlock {
                id: block

                x: block.start * root.pixelsPerSecond
                y: block.lane * root.laneHeight + 2
                width: Math.max(3, block.length * root.pixelsPerSecond)
                height: root.laneHeight - 8
                pixelsPerSecond: root.pixelsPerSecond
                viewLeft: view.contentX
                viewRight: view.contentX + view.width
                current: root.activeFocus && root.current === block.index
                onChosen: {
                    root.current = block.index;
                    root.forceActiveFocus();
                }
            }
        }

        WheelHandler {
            acceptedModifiers: Qt.NoModifier
            orientation: Qt.Vertical
            target: null
            onWheel: event => root.zoomAt(Math.pow(1.0015, event.angleDelta.y), event.x - view.contentX)
        }
    }

    Item {
        y: root.rulerHeight
        width: root.labelWidth
        height: view.height
        clip: true

        Repeater {
            model: root.timeline ? root.timeline.lanes : []

            LaneLabel {
                id: label

                y: label.index * root.laneHeight - view.contentY
                width: root.labelWidth - 10
                height: root.laneHeight - 4
            }
        }
    }

    FocusRing {
        target: root
        shown: root.activeFocus && root.current < 0
    }
}
