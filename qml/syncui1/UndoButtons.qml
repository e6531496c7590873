import QtQuick
import Kestrel

// Takes back the last step, and does it again.
Row {
    spacing: 6

    AppButton {
        objectName: "undoButton"
        implicitHeight: 28
        font.pixelSize: Theme.small
        text: qsTr("Undo")
        hint: qsTr("%1 (Ctrl+Z)").arg(Workspace.undoName)
        enabled: Workspace.undoName !== ""
        onClicked: Workspace.undo()
    }

    AppButton {
        objectName: "redoButton"
        implicitHeight: 28
        font.pixelSize: Theme.small
        text: qsTr("Redo")
        hint: qsTr("%1 (Ctrl+Shift+Z)").arg(Workspace.redoName)
        enabled: Workspace.redoName !== ""
        onClicked: Workspace.redo()
    }
}
