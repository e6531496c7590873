import QtQuick
import QtQuick.Layouts
import Kestrel

// What the timelines are to be like: for which programs, where, how fast and large, and what they
// hold. The same before a run and after it.
ColumnLayout {
    id: root

    required property SyncSettings settings
    property string usualFolder: ""
    property string folderButton: "folderButton"
    readonly property string automatic: qsTr("As most of the picture time is.")
    readonly property var driftHelp: [qsTr("Sound that runs apart gets a new file that stays in step."),
        qsTr("As before, and long pictures are cut where they would be out."), qsTr(
            "Long clips may be out of step at their ends.")]

    spacing: 14

    ProgramChoice {
        Layout.fillWidth: true
        settings: root.settings
    }

    FolderChoice {
        Layout.fillWidth: true
        usual: root.usualFolder
        buttonName: root.folderButton
    }

    Choice {
        Layout.fillWidth: true
        label: qsTr("Frame rate")
        choices: root.settings.rateNames
        choice: root.settings.rate
        help: root.settings.rate === 0 ? root.automatic : qsTr("Of the timelines that are written.")
        onChosen: index => root.settings.rate = index
    }

    Choice {
        Layout.fillWidth: true
        label: qsTr("Frame size")
        choices: root.settings.sizeNames
        choice: root.settings.size
        help: root.settings.size === 0 ? root.automatic : qsTr("Of the picture in the timelines.")
        onChosen: index => root.settings.size = index
    }

    Choice {
        objectName: "driftChoice"
        Layout.fillWidth: true
        label: qsTr("Clocks that drift")
        choices: root.settings.driftNames
        choice: root.settings.drift
        help: root.driftHelp[root.settings.drift]
        onChosen: index => root.settings.drift = index
    }

    Tick {
        objectName: "byClockTick"
        Layout.fillWidth: true
        text: qsTr("Clips placed by the clock")
        help: qsTr("Those that no sound places, to about 2 s.")
        checked: root.settings.byClock
        onTurned: on => root.settings.byClock = on
    }

    Tick {
        Layout.fillWidth: true
        text: qsTr("Cameras are heard too")
        help: qsTr("Otherwise only recorders, where one was running.")
        checked: root.settings.cameraSound
        onTurned: on => root.settings.cameraSound = on
    }

    Tick {
        Layout.fillWidth: true
        text: qsTr("Best sound for every camera clip")
        help: qsTr("A sound file as long as the clip, cut from the recorder.")
        checked: root.settings.replaceAudio
        onTurned: on => root.settings.replaceAudio = on
    }
}
