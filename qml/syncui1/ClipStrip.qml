import QtQuick
import QtQuick.Layouts
import Kestrel

// What is known of the selected clip, and what can be done about its place.
Panel {
    id: root

    property int recording: 0
    property var selection: []
    property real framesPerSecond: 25
    property var facts: ({})
    signal againWanted(var recordings)
    readonly property bool any: root.recording > 0 && root.facts.name !== undefined
    readonly property real frame: 1 / root.framesPerSecond

    function refresh() {
        root.facts = Workspace.facts(root.recording);
    }

    component Fact: ColumnLayout {
        property string label
        property string value
        property color tone: Theme.text

        visible: value !== ""
        spacing: 1
        Accessible.role: Accessible.StaticText
        Accessible.name: label + ": " + value

        AppText {
            text: parent.label
            color: Theme.dim
            font.pixelSize: 11
            Accessible.ignored: true
        }

        AppText {
            Layout.maximumWidth: 240
            text: parent.value
            color: parent.tone
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
    }

    component Tool: AppButton {
        implicitHeight: 28
        font.pixelSize: Theme.small
        enabled: root.any
    }

    color: Theme.raised
    implicitHeight: content.implicitHeight + 16
    onRecordingChanged: root.refresh()
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("The selected clip")

    Connections {
        target: Workspace
        function onChanged() {
            root.refresh();
        }
    }

    ColumnLayout {
        id: content

        anchors.fill: parent
        anchors.margins: 8
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        spacing: 8

        Flow {
            Layout.fillWidth: true
            Layout.preferredHeight: 32
            clip: true
            spacing: 22

            AppText {
                visible: !root.any
                height: 32
                verticalAlignment: Text.AlignVCenter
                text: qsTr("Select a clip to see what is known of its place.")
                color: Theme.dim
            }

            Fact {
                label: root.facts.device ?? ""
                value: root.any ? root.facts.name : ""
            }

            Fact {
                label: qsTr("State")
                value: root.facts.state ?? ""
                tone: [Theme.good, Theme.warning, Theme.byHand, Theme.byClock, Theme.dim, Theme.dim, Theme.danger][root.facts.stateNumber ?? 0]
            }

            Fact {
                label: qsTr("Place")
                value: root.facts.place ?? ""
            }

            Fact {
                label: qsTr("Exact to")
                value: root.facts.exact ?? ""
            }

            Fact {
                label: qsTr("Confidence")
                value: root.facts.confidence ?? ""
            }

            Fact {
                label: qsTr("Clock drift")
                value: root.facts.drift ?? ""
            }

            Fact {
                label: qsTr("Matched with")
                value: root.facts.matched ?? ""
            }
        }

        Flow {
            Layout.fillWidth: true
            spacing: 6

            Tool {
                objectName: "confirmButton"
                text: qsTr("Confirm")
                hint: qsTr("You looked, and it is right (C)")
                lit: root.facts.confirmed ?? false
                onClicked: Workspace.confirm(root.selection)
            }

            Tool {
                text: qsTr("Pin")
                hint: qsTr("Stays where it is when others are synchronised again (P)")
                lit: root.facts.pinned ?? false
                onClicked: Workspace.pin(root.selection)
            }

            Tool {
                text: qsTr("Exclude")
                hint: qsTr("Keeps its place, but goes into no document (X)")
                lit: root.facts.excluded ?? false
                onClicked: Workspace.exclude(root.selection)
            }

            Tool {
                text: qsTr("− frame")
                hint: qsTr("One frame earlier (,)")
                onClicked: Workspace.move(root.selection, -root.frame)
            }

            Tool {
                text: qsTr("− 1 ms")
                hint: qsTr("One millisecond earlier (Shift+,)")
                onClicked: Workspace.move(root.selection, -0.001)
            }

            Tool {
                objectName: "laterButton"
                text: qsTr("+ 1 ms")
                hint: qsTr("One millisecond later (Shift+.)")
                onClicked: Workspace.move(root.selection, 0.001)
            }

            Tool {
                objectName: "frameLaterButton"
                text: qsTr("+ frame")
                hint: qsTr("One frame later (.)")
                onClicked: Workspace.move(root.selection, root.frame)
            }

            Tool {
                text: qsTr("Next likely place")
                hint: qsTr("Where its sound fits as well, the best first (N)")
                enabled: root.any && root.selection.length === 1
                onClicked: Workspace.toNextPlace(root.recording)
            }

            Tool {
                objectName: "againButton"
                text: qsTr("Sync again")
                hint: qsTr("Listens once more for the selected clips alone; all others count as the truth")
                onClicked: root.againWanted(root.selection)
            }

            Tool {
                text: qsTr("Take out")
                hint: qsTr("Has no place any more (Delete)")
                onClicked: Workspace.unplace(root.selection)
            }
        }
    }
}
