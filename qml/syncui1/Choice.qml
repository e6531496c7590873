import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// One setting: its name, the list to choose from, and a line that says what it does.
ColumnLayout {
    id: root

    required property string label
    required property string help
    property alias choices: box.model
    property alias choice: box.currentIndex
    signal chosen(int index)

    spacing: 5

    AppText {
        text: root.label
        font.weight: Font.Medium
    }

    ComboBox {
        id: box

        Layout.fillWidth: true
        implicitHeight: Theme.control
        font.family: Theme.family
        font.pixelSize: Theme.body
        leftPadding: 12
        Accessible.name: root.label + ": " + box.displayText
        Accessible.description: root.help
        onActivated: index => root.chosen(index)
        Keys.onReturnPressed: box.popup.open()
        Keys.onEnterPressed: box.popup.open()

        contentItem: AppText {
            text: box.displayText
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
        }
        indicator: AppText {
            x: box.width - width - 12
            y: (box.height - height) / 2 - 3
            text: "⌄"
            color: Theme.dim
            font.pixelSize: 15
        }
        background: Rectangle {
            radius: 8
            color: box.hovered || box.popup.visible ? Theme.hover : Theme.raised
            border.width: 1
            border.color: Theme.line

            FocusRing {
                target: parent
                shown: box.visualFocus
            }
        }
        delegate: ItemDelegate {
            id: option

            required property int index
            required property string modelData

            width: box.width - 8
            height: 32
            highlighted: box.highlightedIndex === option.index
            contentItem: AppText {
                text: option.modelData
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                font.weight: box.currentIndex === option.index ? Font.DemiBold : Font.Normal
            }
            background: Rectangle {
                radius: 6
                color: option.highlighted ? Theme.line : "transparent"
            }
        }
        popup: Popup {
            y: box.height + 4
            width: box.width
            implicitHeight: Math.min(contentItem.implicitHeight + 8, 320)
            padding: 4
            background: Rectangle {
                color: Theme.raised
                border.color: Theme.line
                radius: 8
            }
            contentItem: ListView {
                clip: true
                implicitHeight: contentHeight
                model: box.popup.visible ? box.delegateModel : null
                currentIndex: box.highlightedIndex
                ScrollBar.vertical: AppScrollBar {}
            }
        }
    }

    AppText {
        Layout.fillWidth: true
        text: root.help
        color: Theme.dim
        font.pixelSize: Theme.small
        wrapMode: Text.Wrap
    }
}
