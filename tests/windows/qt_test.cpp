// What presses of keys and buttons need of Qt's test library, for a Qt that was built without it:
// the headers are those of the tools' own Qt, which is the same release.
#include <QTest>

namespace QTestPrivate {
Qt::MouseButtons qtestMouseButtons = Qt::NoButton;
}

namespace QTest {

int lastMouseTimestamp = 0;
int defaultMouseDelay() { return -1; }
int defaultKeyDelay() { return -1; }

// Letters, digits and the like have the number of their character.
Qt::Key asciiToKey(char ascii) { return static_cast<Qt::Key>(QChar(ascii).toUpper().unicode()); }
char keyToAscii(Qt::Key key) { return key < 0x80 ? QChar(key).toLower().toLatin1() : '\0'; }

}  // namespace QTest
