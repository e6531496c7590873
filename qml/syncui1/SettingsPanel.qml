import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kestrel

// The settings of a run and the button that starts it.
Panel {
    id: root

    required property SyncSettings settings
    required property int recordings
    readonly property bool ready: root.recordings >= 2
    signal startWanted
    signal resultWanted

    readonly property var speedHelp: [qsTr("Quickest; enough for clear sound."),
        qsTr("Right for most recordings."), qsTr("Takes longer; for quiet or noisy sound.")]
    readonly property string automatic: qsTr("As most of the picture time is.")
    readonly property var modeHelp: [qsTr("Accepts fainter matches, also in music."),
        qsTr("Keeps matches beyond doubt only.")]

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 10

        AppText {
            Layout.preferredHeight: 30
            verticalAlignment: Text.AlignVCenter
            text: qsTr("Settings")
            font.pixelSize: Theme.heading
            font.weight: Font.DemiBold
        }

        Flickable {
            id: view

            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            contentHeight: choices.implicitHeight
            ScrollBar.vertical: AppScrollBar {}

            ColumnLayout {
                id: choices

                width: view.width - 8
                spacing: 14

                Choice {
                    Layout.fillWidth: true
                    label: qsTr("Speed")
                    choices: root.settings.speedNames
                    choice: root.settings.speed
                    help: root.speedHelp[root.settings.speed]
                    onChosen: index => root.settings.speed = index
                }

                Choice {
                    Layout.fillWidth: true
                    label: qsTr("Matches")
                    choices: root.settings.modeNames
                    choice: root.settings.mode
                    help: root.modeHelp[root.settings.mode]
                    onChosen: index => root.settings.mode = index
                }

                Choice {
                    Layout.fillWidth: true
                    label: qsTr("Frame rate")
                    choices: root.settings.rateNames
                    choice: root.settings.rate
                    help: root.settings.rate === 0 ? root.automatic : qsTr(
                                                         "Of the timelines that are written.")
                    onChosen: index => root.settings.rate = index
                }

                Choice {
                    Layout.fillWidth: true
                    label: qsTr("Frame size")
                    choices: root.settings.sizeNames
                    choice: root.settings.size
                    help: root.settings.size === 0 ? root.automatic : qsTr(
                                                         "Of the picture in the timelines.")
                    onChosen: index => root.settings.size = index
                }
            }
        }

        AppText {
            Layout.fillWidth: true
            visible: !root.ready
            text: root.recordings === 0 ? qsTr("Add recordings to begin.") : qsTr(
                                              "Add one more recording to begin.")
            color: Theme.dim
            font.pixelSize: Theme.small
            horizontalAlignment: Text.AlignHCenter
        }

        AppButton {
            id: back

            property int groups: 0

            objectName: "resultButton"
            Layout.fillWidth: true
            visible: back.groups > 0
            text: qsTr("Back to the timeline")
            hint: qsTr("What the last run found (Ctrl+R)")
            onClicked: root.resultWanted()

            Connections {
                target: Workspace
                function onChanged() {
                    back.groups = Workspace.result.rowCount();
                }
            }
        }

        AppButton {
            objectName: "startButton"
            Layout.fillWidth: true
            weight: AppButton.Primary
            text: qsTr("Synchronise")
            hint: qsTr("Find out where every recording belongs (Ctrl+Enter)")
            enabled: root.ready && !RunSession.running
            onClicked: root.startWanted()
        }
    }
}
