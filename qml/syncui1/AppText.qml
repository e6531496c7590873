import QtQuick

// Text in the window's typeface, shown as it is written.
Text {
    color: Theme.text
    font.family: Theme.family
    font.pixelSize: Theme.body
    textFormat: Text.PlainText
}
