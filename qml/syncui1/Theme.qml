pragma Singleton

import QtQuick
import Kestrel

// Colours, sizes and the typeface of the window, light or dark. Every text colour has a contrast of
// at least 4.5:1 on every surface that it is used on.
QtObject {
    readonly property bool dark: Appearance.dark
    readonly property color window: dark ? "#131519" : "#eef0f3"
    readonly property color panel: dark ? "#1b1e24" : "#ffffff"
    readonly property color edge: dark ? "#242831" : "#d9dde4"
    readonly property color raised: dark ? "#252932" : "#f0f2f5"
    readonly property color hover: dark ? "#2d323d" : "#e3e7ed"
    readonly property color line: dark ? "#333946" : "#c9cfd9"
    readonly property color mark: dark ? "#596172" : "#98a1b0"
    readonly property color text: dark ? "#eceef3" : "#1b1f27"
    readonly property color dim: dark ? "#a4acbc" : "#565f6e"
    readonly property color accent: dark ? "#f0a63a" : "#a85f00"
    readonly property color accentHover: dark ? "#f8b958" : "#b96a04"
    readonly property color accentPressed: dark ? "#d9922b" : "#8f5000"
    readonly property color accentText: dark ? "#1d1405" : "#ffffff"
    readonly property color good: dark ? "#63cf93" : "#157a43"
    readonly property color warning: dark ? "#f2b866" : "#8f5a00"
    readonly property color danger: dark ? "#ff8f85" : "#b3261e"
    readonly property color byHand: dark ? "#8fb8ff" : "#1c57b5"
    readonly property color byClock: dark ? "#c9a4f5" : "#6f3fb0"
    readonly property color focus: dark ? "#8fb8ff" : "#1f6feb"
    readonly property color chosen: dark ? "#2a3550" : "#d8e5fb"
    readonly property color laneSurface: dark ? "#16191e" : "#f4f6f8"
    readonly property color grid: dark ? "#30ffffff" : "#30000000"
    readonly property color veil: dark ? "#e01b1e24" : "#e0ffffff"
    readonly property color hint: dark ? "#0c0e12" : "#ffffff"
    readonly property var lanes: dark ? ["#5aa9e6", "#63c99a", "#e6a15a", "#b892ea", "#e67f9a", "#5fc7cf",
        "#c9c25a", "#8f9de8"] : ["#1f6fb5", "#1c8655", "#b0620f", "#7645b8", "#b8365c", "#127e87",
        "#77710d", "#4457c2"]

    readonly property int small: 12
    readonly property int body: 13
    readonly property int heading: 16
    readonly property int title: 22

    readonly property int gap: 8
    readonly property int space: 16
    readonly property int margin: 20
    readonly property int radius: 10
    readonly property int control: 34

    readonly property string family: {
        const wanted = ["Inter", "Segoe UI", "SF Pro Text", "Noto Sans", "Cantarell"];
        const known = Qt.fontFamilies();
        return wanted.find(name => known.includes(name)) ?? Qt.application.font.family;
    }

    // what the timeline is drawn with
    readonly property var canvas: ({
            "lanes": lanes,
            "laneSurface": laneSurface,
            "grid": grid,
            "text": text,
            "dim": dim,
            "focus": focus,
            "good": good,
            "warning": warning,
            "byHand": byHand,
            "byClock": byClock,
            "family": family
        })

    function lane(index: int): color {
        return lanes[index % lanes.length];
    }
}
