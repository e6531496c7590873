import QtQuick
import Kestrel

// Times above the lanes, as far apart as they need to be to be read.
Item {
    id: root

    required property real offset           // pixels scrolled away on the left
    required property real pixelsPerSecond
    readonly property real step: TimeScale.step(root.pixelsPerSecond, 90)
    readonly property real stepPixels: root.step * root.pixelsPerSecond
    readonly property int decimals: root.step >= 1 ? 0 : root.step >= 0.1 ? 1 : root.step >= 0.01 ? 2 : root.step >= 0.001 ? 3 : 4
    readonly property int first: Math.floor(root.offset / root.stepPixels)

    clip: true

    Repeater {
        model: Math.ceil(root.width / root.stepPixels) + 1

        Item {
            id: mark

            required property int index
            readonly property int number: root.first + mark.index

            x: mark.number * root.stepPixels - root.offset
            height: root.height

            Rectangle {
                y: root.height - 8
                width: 1
                height: 8
                color: Theme.mark
            }

            AppText {
                x: 4
                y: 3
                visible: mark.x + width + 4 <= root.width
                text: TimeScale.text(mark.number * root.step, root.decimals)
                font.pixelSize: 11
                color: Theme.dim
            }
        }
    }
}
