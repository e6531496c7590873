import QtQuick
import QtQuick.Layouts
import Kestrel

// A run as it goes on: its steps, the file in work, the bar, and the way out.
Item {
    id: root

    property alias bar: progressArea
    readonly property var steps: [qsTr("Convert"), qsTr("Read"), qsTr("Listen"), qsTr("Compare"),
        qsTr("Place"), qsTr("Write")]
    readonly property var titles: [qsTr("Taking the sound out of the recordings"),
        qsTr("Reading pictures and frame rates"), qsTr("Listening to every recording"),
        qsTr("Comparing every recording with every other"),
        qsTr("Placing the recordings on the timeline"), qsTr("Writing the timelines")]

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.min(651, root.width - 40)
        spacing: 0

        StepLine {
            Layout.fillWidth: true
            Layout.bottomMargin: 44
            steps: root.steps
            current: RunSession.stage
        }

        AppText {
            objectName: "stageTitle"
            Layout.fillWidth: true
            text: RunSession.cancelling ? qsTr("Cancelling …") : root.titles[RunSession.stage]
            font.pixelSize: Theme.title
            font.weight: Font.DemiBold
        }

        RowLayout {
            Layout.topMargin: 10
            Layout.bottomMargin: 14
            spacing: 16

            AppText {
                Layout.fillWidth: true
                text: RunSession.cancelling ? qsTr("The step in work is brought to its end.") :
                                              RunSession.file || (RunSession.total > 0 ? "" : qsTr("Starting …"))
                color: Theme.dim
                elide: Text.ElideMiddle
            }

            AppText {
                visible: RunSession.total > 0
                text: qsTr("%1 of %2").arg(RunSession.done).arg(RunSession.total)
            }
        }

        // shown while a run goes on
        Item {
            id: progressArea

            readonly property int percent: Math.round(100 * RunSession.fraction)

            objectName: "progressbar"
            opacity: 0
            Layout.fillWidth: true
            Layout.preferredHeight: 10
            Accessible.role: Accessible.ProgressBar
            Accessible.name: qsTr("Progress of the run: %1 %").arg(progressArea.percent)

            Rectangle {
                anchors.fill: parent
                radius: 5
                color: Theme.raised
            }

            Rectangle {
                objectName: "wholeBar"
                width: Math.max(height, parent.width * RunSession.fraction)
                height: parent.height
                radius: 5
                color: Theme.accent
            }

            // the run's own measure, 0 to 651 pixels; it begins anew in every step, so that the one
            // above is shown in its place
            Item {
                objectName: "progresbar"
                width: 0
                height: parent.height
            }
        }

        RowLayout {
            Layout.topMargin: 10

            AppText {
                Layout.fillWidth: true
                text: qsTr("%1 %").arg(progressArea.percent)
                color: Theme.dim
            }

            AppText {
                text: RunSession.left
                color: Theme.dim
            }
        }

        RowLayout {
            Layout.topMargin: 28

            AppText {
                Layout.fillWidth: true
                text: qsTr("The recordings themselves are never changed.")
                color: Theme.dim
                font.pixelSize: Theme.small
            }

            AppButton {
                objectName: "cancelButton"
                text: qsTr("Cancel")
                hint: qsTr("Ends the run at its next step (Esc)")
                enabled: RunSession.running && !RunSession.cancelling
                onClicked: RunSession.cancel()
                onVisibleChanged: if (visible)
                                      forceActiveFocus(Qt.OtherFocusReason)
            }
        }
    }
}
