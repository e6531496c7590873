pragma Singleton

import QtQuick

// Colours, sizes and the typeface of the window. Every text colour has a contrast of at least
// 4.5:1 on every surface that it is used on.
QtObject {
    readonly property color window: "#131519"
    readonly property color panel: "#1b1e24"
    readonly property color raised: "#252932"
    readonly property color hover: "#2d323d"
    readonly property color line: "#333946"
    readonly property color text: "#eceef3"
    readonly property color dim: "#a4acbc"
    readonly property color accent: "#f0a63a"
    readonly property color accentHover: "#f8b958"
    readonly property color accentPressed: "#d9922b"
    readonly property color accentText: "#1d1405"
    readonly property color good: "#63cf93"
    readonly property color warning: "#f2b866"
    readonly property color danger: "#ff8f85"
    readonly property color focus: "#8fb8ff"
    readonly property var lanes: ["#5aa9e6", "#63c99a", "#e6a15a", "#b892ea", "#e67f9a", "#5fc7cf",
        "#c9c25a", "#8f9de8"]

    readonly property int small: 12
    readonly property int body: 13
    readonly property int heading: 16
    readonly property int title: 22

    readonly property int gap: 8
    readonly property int space: 16
    readonly property int margin: 24
    readonly property int radius: 10
    readonly property int control: 36

    readonly property string family: {
        const wanted = ["Inter", "Segoe UI", "SF Pro Text", "Noto Sans", "Cantarell"];
        const known = Qt.fontFamilies();
        return wanted.find(name => known.includes(name)) ?? Qt.application.font.family;
    }

    function lane(index) {
        return lanes[index % lanes.length];
    }
}
