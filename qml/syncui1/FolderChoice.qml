import QtQuick
import QtQuick.Layouts
import Kestrel

// Where timelines are written.
ColumnLayout {
    id: root

    property string buttonName: "folderButton"
    property string usual: ""  // where they go unless something else is chosen; empty: the desktop
    readonly property string chosen: Workspace.documentsFolder
    readonly property string place: root.chosen || root.usual || qsTr("SYNCED on the desktop")

    spacing: 5

    AppText {
        text: qsTr("Folder")
        font.weight: Font.Medium
    }

    AppText {
        Layout.fillWidth: true
        text: root.place
        color: Theme.dim
        elide: Text.ElideMiddle
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("Timelines are written to %1").arg(root.place)
    }

    RowLayout {
        spacing: 6

        AppButton {
            objectName: root.buttonName
            implicitHeight: 28
            font.pixelSize: Theme.small
            text: qsTr("Choose …")
            hint: qsTr("Another folder for the timelines")
            onClicked: later.call(() => {
                const folder = Ask.forResults(root.chosen || root.usual);
                if (folder.toString() !== "")
                    Workspace.chooseFolder(folder);
            })
        }

        AppButton {
            weight: AppButton.Quiet
            visible: root.chosen !== ""
            implicitHeight: 28
            font.pixelSize: Theme.small
            text: qsTr("As usual")
            onClicked: Workspace.documentsFolder = ""
        }
    }

    Later {
        id: later
    }
}
