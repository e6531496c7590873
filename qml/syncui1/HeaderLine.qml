import QtQuick
import QtQuick.Layouts
import Kestrel

// The program's mark and name, the project, and how the window looks.
RowLayout {
    id: root

    property bool idle: true
    signal openWanted
    signal saveWanted

    readonly property var appearances: [qsTr("As the system"), qsTr("Light"), qsTr("Dark")]

    spacing: 10

    Image {
        source: "images/mark.png"
        Accessible.ignored: true
    }

    AppText {
        text: "Kestrel Aligner"
        font.pixelSize: 17
        font.weight: Font.DemiBold
    }

    AppText {
        Layout.fillWidth: true
        Layout.leftMargin: 4
        text: Workspace.name !== "" ? Workspace.name + (Workspace.unsaved ? " •" : "") : qsTr(
                                          "lines up cameras and recorders by their sound")
        color: Theme.dim
        elide: Text.ElideRight
    }

    AppButton {
        objectName: "openButton"
        weight: AppButton.Quiet
        enabled: root.idle
        text: qsTr("Open project")
        hint: qsTr("A .kestrel file with all that was found and changed (Ctrl+Shift+P)")
        onClicked: root.openWanted()
    }

    AppButton {
        objectName: "saveButton"
        weight: AppButton.Quiet
        enabled: root.idle
        text: qsTr("Save project")
        hint: qsTr("Keeps all that was found and changed (Ctrl+S)")
        onClicked: root.saveWanted()
    }

    AppButton {
        weight: AppButton.Quiet
        text: root.appearances[Appearance.choice]
        hint: qsTr("How the window looks: as the system does, light, or dark")
        Accessible.name: qsTr("Appearance: %1").arg(text)
        onClicked: Appearance.choice = (Appearance.choice + 1) % 3
    }
}
