import QtQuick

// Which device a lane belongs to.
Item {
    id: root

    required property int index
    required property string modelData

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 3
        height: 26
        radius: 2
        color: Theme.lane(root.index)
    }

    AppText {
        anchors.fill: parent
        anchors.leftMargin: 12
        text: root.modelData
        font.pixelSize: Theme.small
        font.weight: Font.Medium
        wrapMode: Text.WrapAnywhere
        maximumLineCount: 2
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }
}
