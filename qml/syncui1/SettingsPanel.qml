import QtQuick
import QtQuick.Layouts
import Kestrel

// How a run listens and what its timelines are like, and the button that starts it.
Panel {
    id: root

    required property SyncSettings settings
    required property int recordings
    readonly property string refusal: Workspace.refusal
    readonly property bool ready: root.recordings >= 2 && root.refusal === ""
    signal startWanted
    signal resultWanted

    readonly property var speedHelp: [qsTr("Quickest; enough for clear sound."),
        qsTr("Right for most recordings."), qsTr("Takes longer; for quiet or noisy sound.")]
    readonly property var modeHelp: [qsTr("Accepts fainter matches, also in music."),
        qsTr("Keeps matches beyond doubt only.")]

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 10

        TabLine {
            id: tabs

            objectName: "settingsTabs"
            Layout.fillWidth: true
            Layout.preferredHeight: 30
            names: [qsTr("Listening"), qsTr("Timelines")]
        }

        ChoicesView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.topMargin: 4
            visible: tabs.current === 0

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

            KeptRoomLine {
                Layout.fillWidth: true
            }
        }

        ChoicesView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.topMargin: 4
            visible: tabs.current === 1

            TimelineChoices {
                Layout.fillWidth: true
                settings: root.settings
            }
        }

        AppText {
            Layout.fillWidth: true
            visible: !root.ready
            text: root.refusal !== "" ? root.refusal : root.recordings === 0 ? qsTr("Add recordings to begin.") : qsTr(
                                                                                   "Add one more recording to begin.")
            color: root.refusal !== "" ? Theme.warning : Theme.dim
            font.pixelSize: Theme.small
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
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
