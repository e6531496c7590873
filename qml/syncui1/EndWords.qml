import QtQuick
import QtQuick.Layouts
import Kestrel

// In place of a timeline where there is none: what happened, and what to do about it.
ColumnLayout {
    id: root

    required property ResultModel result
    readonly property bool failed: root.result.endState === EndState.Failed
    readonly property string title: root.result.refused ? qsTr("Nothing came of this run") : root.failed ? qsTr(
                                                               "No recording could be listened to") : qsTr(
                                                               "No two recordings matched")
    readonly property string words: root.result.refused ? root.result.failure : root.result.leftOutCount === 0 ? qsTr(
                                                               "The notes beside this say why.") : root.failed ? qsTr(
                                                               "The list beside this says why for each of them, and the notes what else went wrong.") : qsTr(
                                                               "The list beside this says why for each of them. The slow speed listens more closely.")

    spacing: 10

    AppText {
        Layout.fillWidth: true
        text: root.title
        font.pixelSize: 18
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
    }

    AppText {
        Layout.fillWidth: true
        text: root.words
        color: Theme.dim
        wrapMode: Text.Wrap
        lineHeight: 1.3
        horizontalAlignment: Text.AlignHCenter
    }
}
