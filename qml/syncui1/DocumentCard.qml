import QtQuick
import QtQuick.Layouts

// The timelines for one editing program: opened there, shown in their folder, or dragged into it.
Rectangle {
    id: root

    // roles of the documents' model
    required property string program
    required property int count
    required property string path
    required property string content
    required property var paths
    required property var urls
    signal openWanted
    signal showWanted

    implicitHeight: 92
    radius: 8
    color: Theme.raised
    Accessible.role: Accessible.ListItem
    Accessible.name: root.program + ". " + root.content

    // what is dragged out of the window are the files themselves
    Drag.active: drag.active
    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.mimeData: ({
            "text/uri-list": root.urls.join("\r\n")
        })

    DragHandler {
        id: drag

        target: null
    }

    HoverHandler {
        cursorShape: Qt.OpenHandCursor
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 10
        anchors.leftMargin: 12
        spacing: 3

        AppText {
            Layout.fillWidth: true
            text: root.program
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }

        AppText {
            Layout.fillWidth: true
            text: root.content
            color: Theme.dim
            font.pixelSize: Theme.small
            elide: Text.ElideRight
        }

        RowLayout {
            spacing: 6

            AppButton {
                implicitHeight: 28
                font.pixelSize: Theme.small
                text: qsTr("Open")
                hint: qsTr("Opens the first of them in the program that the system knows for it")
                Accessible.name: qsTr("Open the timeline for %1").arg(root.program)
                onClicked: root.openWanted()
            }

            AppButton {
                weight: AppButton.Quiet
                implicitHeight: 28
                font.pixelSize: Theme.small
                text: qsTr("Show")
                Accessible.name: qsTr("Show the timelines for %1 in their folder").arg(root.program)
                onClicked: root.showWanted()
            }

            AppText {
                Layout.fillWidth: true
                text: qsTr("or drag it out")
                color: Theme.dim
                font.pixelSize: Theme.small
                horizontalAlignment: Text.AlignRight
                elide: Text.ElideRight
            }
        }
    }
}
