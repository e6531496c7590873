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
    readonly property bool resting: root.phase !== "running" && !Workspace.writing
    readonly property int longList: 5  // recordings; clearing more is asked about
    readonly property bool roomy: root.width >= 720

    function addFiles() {
        later.call(() => panel.notice = collector.notesOn(QMLFile.getFilesSelected()));
    }

    function addDevice() {
        later.call(() => panel.notice = collector.notesOn(QMLFile.getFilesSelected2()));
    }

    function addFolder() {
        later.call(() => {
            const folder = Ask.forRecordings();
            if (folder.toString() !== "")
                collector.add([folder], false);
        });
    }

    function clearList() {
        if (bins.recordings > root.longList)
            clearQuestion.open();
        else
            QMLFile.clearall();
    }

    // Called later, when the button that was pressed is released for good: the call returns only
    // at the end of the run.
    function start() {
        later.call(() => {
            panel.notice = "";
            QMLFile.start_sync2(settings.tolerance, settings.frameSize.width,
                                settings.frameSize.height, settings.frameRate, settings.modeFlag);
            if (RunSession.cancelled) {
                running.bar.opacity = 0;
                panel.notice = qsTr("The run was cancelled.") + (Workspace.result.rowCount() > 0 ? " " + qsTr(
                                                                     "What was found before is still there (Ctrl+R).") : "");
                root.backToList();
            } else {
                finished.start();
            }
        });
    }

    function backToList() {
        finished.putAway();
        panel.focusList();
    }

    function openProject() {
        later.call(() => {
            const file = Ask.forProject();
            if (file.toString() !== "")
                Workspace.open(file);
        });
    }

    function showProject() {
        if (Workspace.result.rowCount() > 0) {
            finished.bringBack();
            finished.start();
        } else {
            root.backToList();
        }
    }

    function saveProject() {
        later.call(() => {
            if (!Workspace.save())
                root.saveProjectAs();
        });
    }

    function saveProjectAs() {
        later.call(() => {
            const file = Ask.whereToSave(Workspace.name);
            if (file.toString() !== "")
                Workspace.saveAs(file);
        });
    }

    function write() {
        later.call(() => {
            Workspace.exportTo("");
            finished.showWritten();
        });
    }

    function writeElsewhere() {
        later.call(() => {
            const folder = Ask.forResults(Workspace.result.folder);
            if (folder.toString() === "")
                return;
            Workspace.chooseFolder(folder);
            root.write();
        });
    }

    width: 1180
    height: 760
    color: Theme.window
    Component.onCompleted: panel.focusList()

    Binding {
        target: root.Window.window
        when: root.Window.window !== null
        property: "title"
        value: (Workspace.name !== "" ? Workspace.name + " – " : "") + "Kestrel Aligner"
    }

    Later {
        id: later
    }

    Connections {
        target: Workspace
        function onOpened() {
            root.showProject();
        }
    }

    BinModel {
        id: bins
    }

    SyncSettings {
        id: settings
    }

    MediaCollector {
        id: collector

        onFinished: (added, notes) => panel.notice = notes
    }

    HeaderLine {
        id: header

        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        height: 56
        idle: root.resting
        onOpenWanted: root.openProject()
        onSaveWanted: root.saveProject()
    }

    Item {
        id: problem

        anchors.top: header.bottom
        anchors.topMargin: -8
        x: Theme.margin
        width: parent.width - 2 * Theme.margin
        height: Workspace.problem !== "" ? problemText.implicitHeight + 12 : 0

        AppText {
            id: problemText

            width: parent.width
            visible: text !== ""
            text: Workspace.problem
            color: Theme.warning
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
    }

    RowLayout {
        anchors.fill: parent
        anchors.margins: Theme.margin
        anchors.topMargin: header.height + problem.height
        spacing: Theme.space
        visible: root.idle

        RecordingPanel {
            id: panel

            Layout.fillWidth: true
            Layout.fillHeight: true
            bins: bins
            onFilesWanted: root.addFiles()
            onDeviceWanted: root.addDevice()
            onFolderWanted: root.addFolder()
            onClearWanted: root.clearList()

            DropPlace {
                anchors.fill: parent
                enabled: root.idle
                searching: collector.busy
                onFilesDropped: (urls, oneDevice) => collector.add(urls, oneDevice)
            }
        }

        SettingsPanel {
            Layout.preferredWidth: Math.max(250, Math.min(330, root.width * 0.28))
            Layout.fillHeight: true
            settings: settings
            recordings: bins.recordings
            onStartWanted: root.start()
            onResultWanted: root.showProject()
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
        anchors.topMargin: header.height + problem.height
        visible: root.phase === "finished"
        framesPerSecond: settings.frameRate || bins.firstFrameRate || 25
        onNewSyncWanted: root.backToList()
        enabled: !Workspace.writing
        settings: settings
        onExportWanted: root.write()
        onFolderWanted: root.writeElsewhere()
        onAgainWanted: recordings => {
            Workspace.placeAgain(recordings);
            finished.putAway();
            root.start();
        }
    }

    ConfirmPopup {
        id: clearQuestion

        question: qsTr("Take all %n recording(s) off the list?", "", bins.recordings)
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
        sequences: ["Ctrl+D"]
        enabled: root.idle
        onActivated: root.addFolder()
    }

    Shortcut {
        sequences: ["Ctrl+J"]
        enabled: root.idle
        onActivated: bins.join()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+J"]
        enabled: root.idle
        onActivated: bins.split()
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: root.idle && bins.recordings >= 2 && Workspace.refusal === ""
        onActivated: root.start()
    }

    Shortcut {
        sequences: ["Ctrl+N"]
        enabled: root.phase === "finished" && root.resting
        onActivated: root.backToList()
    }

    Shortcut {
        sequences: ["Ctrl+R"]
        enabled: root.idle && Workspace.result.rowCount() > 0
        onActivated: root.showProject()
    }

    Shortcut {
        sequences: ["Ctrl+E"]
        enabled: root.phase === "finished" && root.resting && Workspace.result.rowCount() > 0
        onActivated: root.write()
    }

    Shortcut {
        sequences: ["Ctrl+S"]
        enabled: root.resting
        onActivated: root.saveProject()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+S"]
        enabled: root.resting
        onActivated: root.saveProjectAs()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+P"]
        enabled: root.resting
        onActivated: root.openProject()
    }

    Shortcut {
        sequences: ["Ctrl+Z"]
        enabled: root.resting
        onActivated: Workspace.undo()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]
        enabled: root.resting
        onActivated: Workspace.redo()
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
