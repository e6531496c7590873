import QtQuick
import QtQuick.Controls.Basic

// A button in one of three weights: the one main action, an ordinary one, a quiet one. Space and
// Enter press it.
AbstractButton {
    id: root

    enum Weight { Primary, Ordinary, Quiet }
    property int weight: AppButton.Ordinary
    readonly property bool primary: root.weight === AppButton.Primary
    property string hint: ""
    property bool lit: root.checked  // shown as switched on

    function surface(): color {
        if (root.primary) {
            if (!root.enabled)
                return Theme.raised;
            return root.down ? Theme.accentPressed : root.hovered ? Theme.accentHover : Theme.accent;
        }
        if (root.lit)
            return Theme.chosen;
        if (root.weight === AppButton.Quiet)
            return root.down || root.hovered ? Theme.hover : "transparent";
        return root.down ? Theme.line : root.hovered ? Theme.hover : Theme.raised;
    }

    // what a click does; the type has no function for it yet
    function press() {
        if (!root.enabled)
            return;
        if (root.checkable)
            root.toggle();
        root.clicked();
    }

    implicitHeight: root.primary ? 44 : Theme.control
    implicitWidth: root.implicitContentWidth + (root.weight === AppButton.Quiet ? 20 : 28)
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: root.enabled || root.primary ? 1 : 0.5
    Accessible.name: root.text
    Accessible.description: root.hint
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()

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
