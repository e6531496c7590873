import QtQuick
import QtQuick.Layouts

// One line of the bins: a device with its name, or one of its recordings.
Item {
    id: root

    // roles of BinModel
    required property int index
    required property int itemId
    required property bool isDevice
    required property string name
    required property string folder
    required property int count
    required property int tracks
    required property bool collapsed
    required property bool selected
    required property string kind
    required property string length
    required property string problem

    property bool current: false
    property bool renaming: false
    property bool target: false  // what is dragged would go here
    readonly property string countText: qsTr("%n clip(s)", "", root.count)
    signal chosen(bool toggle, bool extend)
    signal collapseWanted
    signal renameWanted
    signal renamed(string name)
    signal renameEnded
    signal dragMoved(real y)
    signal dragEnded(real y)

    implicitHeight: root.isDevice ? 46 : 34
    Accessible.role: Accessible.ListItem
    Accessible.name: root.isDevice ? root.name + ", " + root.countText : root.name
    Accessible.description: root.isDevice ? "" : root.problem || root.kind + " " + root.length
    Accessible.selectable: true
    Accessible.selected: root.selected
    Accessible.focusable: true
    Accessible.focused: root.current

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: root.isDevice ? 8 : 0
        radius: root.isDevice ? 8 : 4
        color: root.selected ? Theme.chosen : root.isDevice ? Theme.raised : hover.hovered ? Theme.hover :
                                                                                            "transparent"
        border.width: root.current || root.target ? 2 : 0
        border.color: root.target ? Theme.accent : Theme.focus
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        acceptedModifiers: Qt.NoModifier
        onTapped: root.chosen(false, false)
        onDoubleTapped: if (root.isDevice)
                            root.renameWanted()
    }

    TapHandler {
        acceptedModifiers: Qt.ControlModifier
        onTapped: root.chosen(true, false)
    }

    TapHandler {
        acceptedModifiers: Qt.ShiftModifier
        onTapped: root.chosen(false, true)
    }

    DragHandler {
        id: drag

        target: null
        onActiveChanged: {
            if (!drag.active)
                root.dragEnded(drag.centroid.position.y);
            else if (!root.selected)
                root.chosen(false, false);
        }
        onCentroidChanged: if (drag.active)
                               root.dragMoved(drag.centroid.position.y)
    }

    RowLayout {
        anchors.fill: parent
        anchors.topMargin: root.isDevice ? 8 : 0
        anchors.leftMargin: root.isDevice ? 4 : 38
        anchors.rightMargin: 12
        spacing: 10

        AppButton {
            visible: root.isDevice
            weight: AppButton.Quiet
            implicitWidth: 28
            implicitHeight: 28
            focusPolicy: Qt.NoFocus
            text: root.collapsed ? "›" : "⌄"
            Accessible.name: root.collapsed ? qsTr("Show the clips of %1").arg(root.name) : qsTr(
                                                  "Hide the clips of %1").arg(root.name)
            onClicked: root.collapseWanted()
        }

        Rectangle {
            visible: root.isDevice
            Layout.preferredWidth: 3
            Layout.preferredHeight: 20
            radius: 2
            color: Theme.accent
        }

        NameField {
            visible: root.renaming
            Layout.fillWidth: true
            name: root.name
            onNameGiven: text => root.renamed(text)
            onEnded: root.renameEnded()
        }

        AppText {
            Layout.fillWidth: true
            Layout.maximumWidth: implicitWidth + 1
            visible: !root.renaming
            text: root.name
            elide: Text.ElideMiddle
            font.weight: root.isDevice ? Font.DemiBold : Font.Normal
        }

        AppText {
            Layout.fillWidth: true
            Layout.preferredWidth: 10
            visible: !root.renaming
            text: root.isDevice ? root.countText + "  ·  " + root.folder : root.tracks > 1 ? qsTr(
                                                                                                 "%n track(s)", "",
                                                                                                 root.tracks) : ""
            elide: Text.ElideMiddle
            color: Theme.dim
            font.pixelSize: Theme.small
        }

        AppText {
            visible: !root.isDevice
            text: root.problem || root.kind
            color: root.problem !== "" ? Theme.warning : Theme.dim
            font.pixelSize: Theme.small
        }

        AppText {
            Layout.preferredWidth: 54
            text: root.length
            color: root.isDevice ? Theme.dim : Theme.text
            horizontalAlignment: Text.AlignRight
        }
    }
}
