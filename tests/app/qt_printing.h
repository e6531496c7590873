#pragma once

#include <QByteArray>
#include <QString>
#include <ostream>

// What a failed comparison shows of Qt's texts; found by their types.
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }
inline void PrintTo(const QByteArray& text, std::ostream* out) { *out << text.toStdString(); }
