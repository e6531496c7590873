#include "app/translation.h"

#include <QLibraryInfo>
#include <QTranslator>

namespace app {
namespace {

void install(QCoreApplication& application, const QLocale& locale, const QString& name,
             const QString& folder) {
  auto* texts = new QTranslator(&application);
  if (texts->load(locale, name, "_", folder)) QCoreApplication::installTranslator(texts);
}

}  // namespace

void speak(QCoreApplication& application, const QLocale& locale) {
  install(application, locale, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  install(application, QLocale::English, "kestrel-aligner", ":/i18n");  // one clip, two clips
  install(application, locale, "kestrel-aligner", ":/i18n");
}

}  // namespace app
