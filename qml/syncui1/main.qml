import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Kestrel

// qmllint disable unqualified
// "myModel" and "QMLFile" are published by the program.

// The window. It is idle, running or finished; which one, is told by the objects that the program
// drives by name: "progressbar" is shown during a run, "done" after it.
Rectangle {
    id: root

    readonly property string phase: finished.marker.opacity > 0 ? "finished" : RunSession.running
                                    || running.bar.opacity > 0 ? "running" : "idle"
    readonly property bool idle: root.phase === "idle"
    readonly property int longList: 5  // recordings; clearing more is asked about

    function addFiles() {
        Qt.callLater(QMLFile.getFilesSelected);
    }

    function addDevice() {
        Qt.callLater(QMLFile.getFilesSelected2);
    }

    function clearList() {
        if (recordings.recordings > root.longList)
            clearQuestion.open();
        else
            QMLFile.clearall();
    }

    // Called later, when the button that was pressed is released for good: the call returns only
    // at the end of the run.
    function start() {
        Qt.callLater(() => {
            QMLFile.start_sync2(settings.tolerance, settings.frameSize.width,
                                settings.frameSize.height, settings.frameRate, settings.modeFlag);
            panel.notice = "";
            if (RunSession.cancelled) {
                running.bar.opacity = 0;
                panel.notice = qsTr("The run was cancelled.");
            }
        });
    }

    function newSync() {
        finished.putAway();
        panel.focusList();
    }

    width: 1180
    height: 760
    color: Theme.window

    Binding {
        target: root.Window.window
        when: root.Window.window !== null
        property: "title"
        value: "Kestrel Aligner"
    }

    Binding {
        target: root.Window.window
        when: root.Window.window !== null
        property: "minimumWidth"
        value: 900
    }

    Binding {
        target: root.Window.window
        when: root.Window.window !== null
        property: "minimumHeight"
        value: 640
    }

    RecordingModel {
        id: recordings

        sourceModel: myModel
    }

    SyncSettings {
        id: settings
    }

    MediaCollector {
        id: collector

        onFinished: (added, passedOver) => {
            panel.notice = passedOver === 0 ? "" : passedOver === 1 ? qsTr(
                                                  "1 file was passed over: it is no recording.") : qsTr(
                                                  "%1 files were passed over: they are no recordings.").arg(
                                                  passedOver);
        }
    }

    HeaderLine {
        id: header

        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        height: 64
    }

    RowLayout {
        anchors.fill: parent
        anchors.margins: Theme.margin
        anchors.topMargin: header.height
        spacing: Theme.space
        visible: root.idle

        RecordingPanel {
            id: panel

            Layout.fillWidth: true
            Layout.fillHeight: true
            recordings: recordings
            onFilesWanted: root.addFiles()
            onDeviceWanted: root.addDevice()
            onClearWanted: root.clearList()

            DropPlace {
                anchors.fill: parent
                enabled: root.idle
                searching: collector.busy
                onFilesDropped: (urls, oneDevice) => collector.add(urls, oneDevice)
            }
        }

        SettingsPanel {
            Layout.preferredWidth: Math.max(296, Math.min(340, root.width * 0.28))
            Layout.fillHeight: true
            settings: settings
            recordings: recordings.recordings
            onStartWanted: root.start()
        }
    }

    RunningView {
        id: running

        anchors.fill: parent
        visible: root.phase === "running"
    }

    FinishedView {
        id: finished

        anchors.fill: parent
        anchors.margins: Theme.margin
        anchors.topMargin: header.height
        visible: root.phase === "finished"
        onNewSyncWanted: root.newSync()
    }

    ConfirmPopup {
        id: clearQuestion

        question: qsTr("Take all %1 recordings off the list?").arg(recordings.recordings)
        action: qsTr("Clear list")
        onConfirmed: QMLFile.clearall()
    }

    Shortcut {
        sequences: ["Ctrl+O"]
        enabled: root.idle
        onActivated: root.addFiles()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+O"]
        enabled: root.idle
        onActivated: root.addDevice()
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: root.idle && recordings.recordings >= 2
        onActivated: root.start()
    }

    Shortcut {
        sequences: ["Ctrl+N"]
        enabled: root.phase === "finished"
        onActivated: root.newSync()
    }

    Shortcut {
        sequences: ["Ctrl+Q"]
        onActivated: Qt.quit()
    }

    Shortcut {
        sequences: ["Escape"]
        enabled: root.phase === "running"
        onActivated: RunSession.cancel()
    }
}
