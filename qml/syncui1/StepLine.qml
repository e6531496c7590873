import QtQuick

// The steps of a run in a row: those done, the one in work, those to come.
Row {
    id: root

    required property var steps
    required property int current

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Step %1 of %2: %3").arg(root.current + 1).arg(root.steps.length).arg(
                         root.steps[root.current])

    Repeater {
        model: root.steps

        Item {
            id: step

            required property int index
            required property string modelData
            readonly property bool over: step.index < root.current
            readonly property bool now: step.index === root.current

            width: root.width / root.steps.length
            height: 50

            Rectangle {
                visible: step.index > 0
                x: -width / 2
                y: 12
                width: parent.width - 44
                height: 2
                color: step.index <= root.current ? Theme.accent : Theme.line
            }

            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 26
                height: 26
                radius: 13
                color: step.over ? Theme.accent : step.now ? Theme.window : Theme.raised
                border.width: step.now ? 2 : 0
                border.color: Theme.accent

                AppText {
                    anchors.centerIn: parent
                    text: step.over ? "✓" : step.index + 1
                    font.pixelSize: Theme.small
                    font.weight: Font.DemiBold
                    color: step.over ? Theme.accentText : step.now ? Theme.accent : Theme.dim
                }
            }

            AppText {
                anchors.horizontalCenter: parent.horizontalCenter
                y: 34
                text: step.modelData
                font.pixelSize: Theme.small
                font.weight: step.now ? Font.DemiBold : Font.Normal
                color: step.now ? Theme.text : Theme.dim
            }
        }
    }
}
