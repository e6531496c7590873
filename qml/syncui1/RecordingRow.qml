import QtQuick
import QtQuick.Layouts
import Kestrel

// One line of the list: a recording, the heading of a device group, or the group's lower edge.
Item {
    id: root

    // roles of RecordingModel
    required property int index
    required property int edge
    required property bool inGroup
    required property int groupNumber
    required property int groupSize
    required property string name
    required property string folder
    required property string kind
    required property string length
    required property bool readable

    readonly property bool heading: root.edge === RecordingModel.GroupBegin
    readonly property bool footer: root.edge === RecordingModel.GroupEnd
    property bool current: false
    signal removeWanted
    signal chosen

    implicitHeight: root.heading ? 52 : root.footer ? 18 : 54
    Accessible.role: Accessible.ListItem
    Accessible.name: root.footer ? "" : root.heading ? groupTitle.text : root.name
    Accessible.ignored: root.footer

    // the block of a group: its edges round it off
    Item {
        anchors.fill: parent
        anchors.bottomMargin: root.footer ? 10 : 0
        visible: root.inGroup
        clip: true

        Rectangle {
            width: parent.width
            y: root.footer ? -20 : root.heading ? 8 : 0
            height: root.heading || root.footer ? parent.height + 20 : parent.height
            radius: root.heading || root.footer ? 8 : 0
            color: Theme.raised
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        anchors.topMargin: root.heading ? 10 : 2
        visible: !root.footer && (root.current || hover.hovered)
        radius: 8
        color: root.inGroup ? Theme.hover : Theme.raised
        border.width: root.current ? 1 : 0
        border.color: Theme.focus
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: root.chosen()
    }

    RowLayout {
        anchors.fill: parent
        anchors.topMargin: 8
        anchors.leftMargin: 14
        anchors.rightMargin: 6
        spacing: 12
        visible: root.heading

        AppText {
            id: groupTitle

            text: qsTr("Camera or recorder %1").arg(root.groupNumber)
            font.weight: Font.DemiBold
        }

        AppText {
            Layout.fillWidth: true
            text: root.groupSize === 0 ? qsTr("no recordings") : root.groupSize === 1 ? qsTr(
                                                                                            "1 recording") :
                                                                                        qsTr("%1 recordings").arg(
                                                                                            root.groupSize)
            color: Theme.dim
            font.pixelSize: Theme.small
            elide: Text.ElideRight
        }

        RemoveButton {
            what: groupTitle.text
            onClicked: root.removeWanted()
        }
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: root.inGroup ? 28 : 14
        anchors.rightMargin: 6
        spacing: 12
        visible: !root.heading && !root.footer

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            AppText {
                Layout.fillWidth: true
                text: root.name
                elide: Text.ElideMiddle
                font.weight: Font.Medium
            }

            AppText {
                Layout.fillWidth: true
                text: root.folder
                elide: Text.ElideMiddle
                color: Theme.dim
                font.pixelSize: Theme.small
            }
        }

        AppText {
            text: root.readable ? root.kind : qsTr("not readable as media")
            color: root.readable ? Theme.dim : Theme.warning
            font.pixelSize: Theme.small
        }

        AppText {
            Layout.preferredWidth: 54
            text: root.length
            horizontalAlignment: Text.AlignRight
        }

        RemoveButton {
            what: root.name
            onClicked: root.removeWanted()
        }
    }
}
