import QtQuick
import Kestrel

// One clip on its lane: name, confidence and the sound itself. Only the part in view is drawn.
Rectangle {
    id: root

    // roles of TimelineModel
    required property int index
    required property string name
    required property int lane
    required property double start
    required property double length
    required property double confidence
    required property string detail
    required property var waveform

    required property real pixelsPerSecond
    required property real viewLeft
    required property real viewRight
    property bool current: false
    signal chosen

    readonly property color tone: Theme.lane(root.lane)
    readonly property real seenLeft: Math.max(0, root.viewLeft - root.x)
    readonly property real seenRight: Math.min(root.width, root.viewRight - root.x)
    readonly property real seen: Math.max(0, root.seenRight - root.seenLeft)

    radius: 5
    color: Qt.tint(Theme.panel, Qt.rgba(tone.r, tone.g, tone.b, 0.16))
    border.width: root.current ? 2 : 1
    border.color: root.current ? Theme.focus : hover.hovered ? root.tone : Qt.rgba(tone.r, tone.g,
                                                                                  tone.b, 0.55)
    Accessible.role: Accessible.ListItem
    Accessible.name: root.detail

    WaveformView {
        x: root.seenLeft + 1
        y: 24
        width: Math.max(0, root.seen - 2)
        height: root.height - 28
        visible: root.seen > 4
        waveform: root.waveform
        color: Qt.rgba(root.tone.r, root.tone.g, root.tone.b, 0.85)
        startSeconds: root.seenLeft / root.pixelsPerSecond
        pixelsPerSecond: root.pixelsPerSecond
    }

    AppText {
        x: root.seenLeft + 8
        y: 5
        width: root.seen - 16 - (sureness.visible ? sureness.width + 8 : 0)
        visible: root.seen > 44
        text: root.name
        font.pixelSize: Theme.small
        font.weight: Font.Medium
        elide: Text.ElideMiddle
    }

    AppText {
        id: sureness

        x: root.seenRight - width - 8
        y: 5
        visible: root.seen > 110
        text: qsTr("%1 %").arg(Math.round(root.confidence * 100))
        font.pixelSize: Theme.small
        color: root.confidence >= 0.7 ? Theme.good : Theme.warning
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: root.chosen()
    }

    Hint {
        x: Math.max(root.seenLeft, Math.min(root.seenRight - width, root.seenLeft + 8))
        y: root.height + 4
        text: root.detail
        visible: hover.hovered || root.current
    }
}
