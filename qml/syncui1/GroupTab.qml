import QtQuick

// Chooses one group.
AppButton {
    id: root

    // roles of ResultModel
    required property int index
    required property string name
    required property int count
    property bool shown: false

    implicitHeight: 32
    lit: root.shown
    text: qsTr("%1 · %n recording(s)", "", root.count).arg(root.name)
    Accessible.role: Accessible.PageTab
    Accessible.selected: root.shown
}
