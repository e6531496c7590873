import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Kestrel

// The groups that were found, one at a time as a timeline.
Panel {
    id: root

    required property ResultModel result
    property TimelineModel shown: null

    function show(row) {
        root.shown = root.result.timeline(row);
        groups.currentIndex = row;
    }

    Connections {
        target: root.result
        function onChanged() {
            root.show(0);
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 12
        visible: root.shown !== null

        RowLayout {
            spacing: 10

            ListView {
                id: groups

                Layout.fillWidth: true
                Layout.preferredHeight: 32
                orientation: ListView.Horizontal
                boundsBehavior: Flickable.StopAtBounds
                spacing: 8
                clip: true
                model: root.result
                delegate: GroupTab {
                    id: tab

                    shown: groups.currentIndex === tab.index
                    onClicked: root.show(tab.index)
                }
            }

            AppButton {
                implicitWidth: 32
                implicitHeight: 32
                text: "−"
                Accessible.name: qsTr("Zoom out")
                onClicked: timeline.zoomBy(1 / 1.5)
            }

            AppButton {
                implicitHeight: 32
                implicitWidth: 50
                text: qsTr("Fit")
                hint: qsTr("The whole group in view (F)")
                onClicked: timeline.fit()
            }

            AppButton {
                implicitWidth: 32
                implicitHeight: 32
                text: "+"
                Accessible.name: qsTr("Zoom in")
                onClicked: timeline.zoomBy(1.5)
            }
        }

        TimelineView {
            id: timeline

            objectName: "timeline"
            Layout.fillWidth: true
            Layout.fillHeight: true
            timeline: root.shown
        }
    }

    ColumnLayout {
        anchors.centerIn: parent
        width: Math.min(parent.width - 60, 440)
        visible: root.shown === null
        spacing: 10

        AppText {
            Layout.fillWidth: true
            text: qsTr("Nothing could be synchronised")
            font.pixelSize: 18
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
        }

        AppText {
            Layout.fillWidth: true
            text: root.result.leftOutCount > 0 ? qsTr(
                                                     "No two recordings heard the same thing clearly enough. The list beside this says why for each of them. The slow speed finds more.") :
                                                 qsTr("The notes beside this say why.")
            color: Theme.dim
            wrapMode: Text.Wrap
            lineHeight: 1.3
            horizontalAlignment: Text.AlignHCenter
        }
    }
}
