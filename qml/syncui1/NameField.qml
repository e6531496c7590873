import QtQuick
import QtQuick.Controls.Basic

// A name that is being changed: Enter keeps it, Escape leaves it as it was.
TextField {
    id: root

    required property string name
    signal nameGiven(string text)
    signal ended

    implicitHeight: 28
    font.family: Theme.family
    font.pixelSize: Theme.body
    color: Theme.text
    selectByMouse: true
    leftPadding: 8
    Accessible.name: qsTr("Name of the device")
    onVisibleChanged: if (visible) {
                          root.text = root.name;
                          root.selectAll();
                          root.forceActiveFocus();
                      }
    onActiveFocusChanged: if (!activeFocus && visible)
                              root.ended()
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            root.nameGiven(root.text);
        else if (event.key !== Qt.Key_Escape)
            return;
        event.accepted = true;
        root.ended();
    }

    background: Rectangle {
        radius: 6
        color: Theme.window
        border.color: Theme.focus
        border.width: 2
    }
}
