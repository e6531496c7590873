import QtQuick
import QtQuick.Controls.Basic

// A button in one of three weights: the one main action, an ordinary one, a quiet one.
AbstractButton {
    id: root

    enum Weight { Primary, Ordinary, Quiet }
    property int weight: AppButton.Ordinary
    readonly property bool primary: root.weight === AppButton.Primary
    property string hint: ""

    function surface() {
        if (root.primary) {
            if (!root.enabled)
                return Theme.raised;
            return root.down ? Theme.accentPressed : root.hovered ? Theme.accentHover : Theme.accent;
        }
        if (root.weight === AppButton.Quiet)
            return root.down || root.hovered ? Theme.hover : "transparent";
        return root.down ? Theme.line : root.hovered ? Theme.hover : Theme.raised;
    }

    implicitHeight: root.primary ? 46 : Theme.control
    implicitWidth: root.implicitContentWidth + (root.weight === AppButton.Quiet ? 24 : 32)
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    Accessible.name: root.text
    Accessible.description: root.hint
    Keys.onReturnPressed: root.click()
    Keys.onEnterPressed: root.click()

    background: Rectangle {
        radius: 8
        color: root.surface()
        border.width: root.weight === AppButton.Ordinary || (root.primary && !root.enabled) ? 1 : 0
        border.color: Theme.line

        FocusRing {
            target: parent
            shown: root.visualFocus
        }
    }
    contentItem: AppText {
        text: root.text
        color: !root.enabled ? Theme.dim : root.primary ? Theme.accentText : Theme.text
        font.pixelSize: root.primary ? 15 : Theme.body
        font.weight: root.primary ? Font.DemiBold : Font.Medium
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    Hint {
        text: root.hint
        visible: root.hint !== "" && (root.hovered || root.visualFocus)
    }
}
