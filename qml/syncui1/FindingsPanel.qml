import QtQuick
import QtQuick.Layouts
import Kestrel

// Beside the timeline: the documents written, the recordings left out, and what else to know.
Panel {
    id: root

    required property ResultModel result
    property bool placeable: false
    signal placeWanted(int recording)

    function choose() {
        if (root.result.failureCount > 0)
            tabs.current = 2;
        else if (root.result.leftOutCount > 0)
            tabs.current = 0;
        else
            tabs.current = root.result.documents.count > 0 ? 1 : 2;
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 14
        spacing: 10

        TabLine {
            id: tabs

            Layout.fillWidth: true
            names: [qsTr("Left out"), qsTr("Timelines"), qsTr("Notes")]
            counts: [root.result.leftOut.count, root.result.documents.count,
                root.result.notices.count]
        }

        FindingsList {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: tabs.current === 0
            model: root.result.leftOut
            nothing: qsTr("Every recording has its place.")
            delegate: LeftOutCard {
                id: leftOut

                width: ListView.view.width - 10
                placeable: root.placeable && leftOut.usable
                onPlaceWanted: root.placeWanted(leftOut.recording)
            }
        }

        FindingsList {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: tabs.current === 1
            model: root.result.documents
            nothing: qsTr("No timelines were written.")
            delegate: DocumentCard {
                id: document

                width: ListView.view.width - 10
                urls: root.result.urls(document.paths)
                onOpenWanted: root.result.openFile(document.path)
                onShowWanted: root.result.openPlaceOf(document.path)
            }
        }

        FindingsList {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: tabs.current === 2
            model: root.result.notices
            nothing: qsTr("Nothing else to know.")
            delegate: NoticeCard {
                width: ListView.view.width - 10
            }
        }
    }
}
