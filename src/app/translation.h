#pragma once

#include <QCoreApplication>
#include <QLocale>

namespace app {

/// Shows the program's own texts and Qt's in the language of `locale` where there is a translation
/// among the program's resources; English otherwise.
void speak(QCoreApplication& application, const QLocale& locale = QLocale());

}  // namespace app
