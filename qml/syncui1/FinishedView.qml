import QtQuick
import QtQuick.Layouts
import Kestrel

// What a project holds after a run: each group as a timeline, what was left out, what was written.
Item {
    id: root

    readonly property ResultModel result: Workspace.result
    required property real framesPerSecond
    required property SyncSettings settings
    signal newSyncWanted
    signal exportWanted
    signal folderWanted
    signal againWanted(var recordings)

    // back to how the window was loaded, so that the end of the next run shows again
    function putAway() {
        doneMarker.opacity = 0;
        mark.opacity = 0;
        caption.scale = 0;
        caption.text = "";
        exits.opacity = 0;
    }

    // shows a project that was opened, as after its run
    function bringBack() {
        doneMarker.opacity = 1;
        mark.opacity = 1;
        caption.scale = 1;
        exits.opacity = 1;
    }

    function start() {
        findings.choose();
        if (elsewhere.visible)
            elsewhere.forceActiveFocus(Qt.OtherFocusReason);
        else if (root.result.rowCount() > 0)
            timelines.focusTimeline();
        else
            again.forceActiveFocus(Qt.OtherFocusReason);
    }

    // after writing once more: what went wrong, or the timelines
    function showWritten() {
        findings.choose();
        if (elsewhere.visible)
            elsewhere.forceActiveFocus(Qt.OtherFocusReason);
    }

    property alias marker: doneMarker
    property int groups: 0

    // what is undone may be the run itself
    Connections {
        target: root.result
        function onChanged() {
            const before = root.groups;
            root.groups = root.result.rowCount();
            if (root.visible && before > 0 && root.groups === 0)
                root.newSyncWanted();
        }
    }
    readonly property int ending: root.result.endState
    readonly property var pictures: ["done", "partly", "nothing", "unwritten", "failed"]
    readonly property var titles: [qsTr("Done!"), qsTr("Done, in part"), qsTr("Nothing matched"), qsTr(
            "Nothing was written"), qsTr("The run failed")]
    readonly property string unwritten: root.result.failureCount > 0 ? " · " + qsTr("%n file(s) not written", "",
                                                                                root.result.failureCount) : ""
    readonly property var words: [root.result.summary, root.result.summary + root.unwritten, qsTr(
            "None of the recordings could be matched with another."), qsTr(
            "%1, but no timeline could be stored").arg(root.result.summary), root.result.refused ? root.result.failure : qsTr(
            "None of the recordings could be listened to.")]

    ChoicesPopup {
        id: choices

        settings: root.settings
        onWriteWanted: root.exportWanted()
    }

    Item {
        id: doneMarker

        objectName: "done"
        anchors.fill: parent
        opacity: 0

        ColumnLayout {
            anchors.fill: parent
            spacing: 12

            RowLayout {
                Layout.fillWidth: true
                Layout.preferredHeight: 48
                spacing: 12

                Image {
                    id: mark

                    objectName: "ima1"
                    opacity: 0
                    source: "images/" + root.pictures[root.ending] + ".png"
                    Accessible.ignored: true
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    // what the program writes here says "Done!" whatever happened
                    AppText {
                        id: caption

                        objectName: "text3"
                        visible: false
                        scale: 0
                    }

                    AppText {
                        objectName: "endTitle"
                        Layout.fillWidth: true
                        scale: caption.scale
                        transformOrigin: Item.Left
                        text: root.titles[root.ending]
                        font.pixelSize: Theme.title
                        font.weight: Font.DemiBold
                        elide: Text.ElideRight
                        Accessible.role: Accessible.Heading
                        Accessible.name: text
                    }

                    AppText {
                        objectName: "endWords"
                        Layout.fillWidth: true
                        text: root.words[root.ending]
                        color: Theme.dim
                        elide: Text.ElideRight
                    }
                }

                AppButton {
                    id: elsewhere

                    objectName: "elsewhere"
                    visible: root.groups > 0 && root.result.failureCount > 0
                    weight: AppButton.Primary
                    implicitHeight: Theme.control
                    text: qsTr("Write elsewhere …")
                    hint: qsTr("Writes the timelines into a folder of your choice")
                    onClicked: root.folderWanted()
                }

                AppButton {
                    objectName: "exportButton"
                    visible: root.groups > 0
                    weight: Workspace.edited && !elsewhere.visible ? AppButton.Primary : AppButton.Ordinary
                    implicitHeight: Theme.control
                    text: Workspace.writing ? qsTr("Writing …") : qsTr("Write timelines")
                    hint: Workspace.edited ? qsTr("Writes the timelines again, with what you changed (Ctrl+E)") : qsTr(
                                                 "Nothing has changed since they were written (Ctrl+E)")
                    onClicked: root.exportWanted()
                }

                AppButton {
                    objectName: "choicesButton"
                    visible: root.groups > 0
                    text: qsTr("Choices …")
                    hint: qsTr("Programs, folder, frame rate and what the timelines hold")
                    onClicked: choices.open()
                }

                AppButton {
                    objectName: "ma3"
                    text: qsTr("Open folder")
                    hint: qsTr("Where the timelines and reports are")
                    onClicked: root.result.openFolder()
                }

                RowLayout {
                    id: exits

                    objectName: "newexit"
                    opacity: 0

                    AppButton {
                        id: again

                        objectName: "newSync"
                        implicitHeight: Theme.control
                        text: qsTr("Back to the list")
                        hint: qsTr("To add recordings and synchronise again; nothing is lost (Ctrl+N)")
                        onClicked: root.newSyncWanted()
                    }
                }
            }

            RowLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                spacing: 12

                TimelinePanel {
                    id: timelines

                    objectName: "timelines"
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    result: root.result
                    framesPerSecond: root.framesPerSecond
                    onAgainWanted: recordings => root.againWanted(recordings)
                }

                FindingsPanel {
                    id: findings

                    Layout.preferredWidth: Math.max(250, Math.min(330, root.width * 0.25))
                    Layout.fillHeight: true
                    result: root.result
                    placeable: timelines.shown !== null
                    onPlaceWanted: recording => timelines.placeHere(recording)
                }
            }
        }
    }
}
