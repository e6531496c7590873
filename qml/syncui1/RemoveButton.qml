import QtQuick

// Takes something off the list.
AppButton {
    id: root

    required property string what

    weight: AppButton.Quiet
    implicitWidth: 30
    implicitHeight: 30
    text: "✕"
    opacity: root.hovered || root.visualFocus ? 1 : 0.75
    focusPolicy: Qt.TabFocus
    activeFocusOnTab: false  // the list's Delete key does the same
    Accessible.name: qsTr("Remove %1").arg(root.what)
}
