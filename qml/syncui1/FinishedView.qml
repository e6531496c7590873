import QtQuick
import QtQuick.Layouts
import Kestrel

// What a run found: each group as a timeline, what was left out, what was written.
Item {
    id: root

    readonly property ResultModel result: RunSession.result
    signal newSyncWanted

    // back to how the window was loaded, so that the end of the next run shows again
    function putAway() {
        doneMarker.opacity = 0;
        mark.opacity = 0;
        caption.scale = 0;
        caption.text = "";
        exits.opacity = 0;
    }

    property alias marker: doneMarker

    Item {
        id: doneMarker

        objectName: "done"
        anchors.fill: parent
        opacity: 0

        ColumnLayout {
            anchors.fill: parent
            spacing: 16

            RowLayout {
                Layout.fillWidth: true
                Layout.preferredHeight: 56
                spacing: 14

                Image {
                    id: mark

                    objectName: "ima1"
                    opacity: 0
                    source: root.result.rowCount() > 0 ? "images/done.png" : "images/nothing.png"
                    Accessible.ignored: true

                    Connections {
                        target: root.result
                        function onChanged() {
                            mark.source = root.result.rowCount() > 0 ? "images/done.png" :
                                                                       "images/nothing.png";
                        }
                    }
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    AppText {
                        id: caption

                        objectName: "text3"
                        scale: 0
                        font.pixelSize: Theme.title
                        font.weight: Font.DemiBold
                    }

                    AppText {
                        Layout.fillWidth: true
                        text: root.result.summary
                        color: Theme.dim
                        elide: Text.ElideRight
                    }
                }

                AppButton {
                    objectName: "ma3"
                    text: qsTr("Open SYNCED folder")
                    hint: qsTr("Where the timelines and reports of this run are")
                    onClicked: root.result.openSyncedFolder()
                }

                RowLayout {
                    id: exits

                    objectName: "newexit"
                    opacity: 0
                    spacing: 14

                    AppButton {
                        objectName: "newSync"
                        weight: AppButton.Primary
                        implicitHeight: Theme.control
                        text: qsTr("New sync")
                        hint: qsTr("Back to the list (Ctrl+N)")
                        onClicked: root.newSyncWanted()
                    }
                }
            }

            RowLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                spacing: 16

                TimelinePanel {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    result: root.result
                }

                FindingsPanel {
                    Layout.preferredWidth: Math.max(286, Math.min(340, root.width * 0.28))
                    Layout.fillHeight: true
                    result: root.result
                }
            }
        }
    }
}
