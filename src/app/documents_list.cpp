#include "app/documents_list.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace app {
namespace {

struct DocumentTexts {
  Q_DECLARE_TR_FUNCTIONS(app::DocumentTexts)
};

/// Which program reads the document `name`; empty for the texts and tables of a run.
QString programOf(const QString& name) {
  if (name.contains("_fcp--")) return DocumentTexts::tr("Final Cut Pro 7");
  if (name.contains("_premierePro")) return DocumentTexts::tr("Premiere Pro");
  if (name.contains("_FCP_X_1.10--")) return DocumentTexts::tr("Final Cut Pro (FCPXML 1.10)");
  if (name.contains("_FCP_X--")) return DocumentTexts::tr("Final Cut Pro X");
  if (name.endsWith(".edl")) return DocumentTexts::tr("Vegas");
  if (name.endsWith(".mlt")) return DocumentTexts::tr("Kdenlive and Shotcut");
  if (name.endsWith(".rpp")) return DocumentTexts::tr("Reaper");
  if (name.endsWith(".otio")) return DocumentTexts::tr("OpenTimelineIO");
  return {};
}

struct Documents {
  QStringList synced, unsynced;
};

QString contentOf(const Documents& documents) {
  QStringList parts;
  if (!documents.synced.isEmpty())
    parts << DocumentTexts::tr("%n timeline(s)", nullptr,
                               static_cast<int>(documents.synced.size()));
  if (!documents.unsynced.isEmpty())
    parts << DocumentTexts::tr("%n with recordings without a place", nullptr,
                               static_cast<int>(documents.unsynced.size()));
  return parts.join(QString::fromUtf8(" · "));
}

}  // namespace

bool isDocument(const std::string& path) {
  return !programOf(QFileInfo(QString::fromStdString(path)).fileName()).isEmpty();
}

QList<QVariantList> documentRows(const project::Written& written) {
  QStringList programs;
  QHash<QString, Documents> documents;
  for (const std::string& output : written.files) {
    const QString path = QString::fromStdString(output);
    const QString name = QFileInfo(path).fileName();
    const QString program = programOf(name);
    if (program.isEmpty()) continue;
    if (!programs.contains(program)) programs << program;
    Documents& of = documents[program];
    (name.startsWith("UNSYNCED") ? of.unsynced : of.synced) << path;
  }
  QList<QVariantList> rows;
  for (const QString& program : programs) {
    const Documents& of = documents[program];
    const QStringList all = of.synced + of.unsynced;
    rows << QVariantList{program, all.size(), all.front(), contentOf(of), all};
  }
  return rows;
}

}  // namespace app
