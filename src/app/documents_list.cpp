#include "app/documents_list.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace app {
namespace {

struct DocumentTexts {
  Q_DECLARE_TR_FUNCTIONS(app::DocumentTexts)
};

/// The format of the document `name`; empty for the texts and tables of a run.
std::string_view formatOf(const QString& name) {
  if (name.contains("_fcp--")) return "fcp";
  if (name.contains("_premierePro")) return "premiere";
  if (name.contains("_FCP_X_1.10--")) return "fcpx110";
  if (name.contains("_FCP_X--")) return "fcpx";
  for (const std::string_view ending : {"otio", "mlt", "rpp"})
    if (name.endsWith('.' + QString::fromUtf8(ending.data()))) return ending;
  return name.endsWith(".edl") ? "vegas" : "";
}

struct Documents {
  QStringList synced, unsynced;
};

QString contentOf(const Documents& documents, bool leftOut) {
  QStringList parts;
  if (!documents.synced.isEmpty())
    parts << DocumentTexts::tr("%n timeline(s)", nullptr,
                               static_cast<int>(documents.synced.size()));
  if (leftOut && !documents.unsynced.isEmpty())
    parts << DocumentTexts::tr("%n with recordings without a place", nullptr,
                               static_cast<int>(documents.unsynced.size()));
  return parts.join(QString::fromUtf8(" · "));
}

}  // namespace

QString programOfFormat(std::string_view format) {
  if (format == "fcp") return DocumentTexts::tr("Final Cut Pro 7");
  if (format == "premiere") return DocumentTexts::tr("Premiere Pro");
  if (format == "fcpx") return DocumentTexts::tr("Final Cut Pro X");
  if (format == "fcpx110") return DocumentTexts::tr("Final Cut Pro (FCPXML 1.10)");
  if (format == "vegas") return DocumentTexts::tr("Vegas");
  if (format == "otio") return DocumentTexts::tr("OpenTimelineIO");
  if (format == "mlt") return DocumentTexts::tr("Kdenlive and Shotcut");
  if (format == "rpp") return DocumentTexts::tr("Reaper");
  return QString::fromUtf8(format.data(), static_cast<qsizetype>(format.size()));
}

bool isDocument(const std::string& path) {
  return !formatOf(QFileInfo(QString::fromStdString(path)).fileName()).empty();
}

QList<QVariantList> documentRows(const project::Written& written, bool leftOut) {
  QStringList programs;
  QHash<QString, Documents> documents;
  for (const std::string& output : written.files) {
    const QString path = QString::fromStdString(output);
    const QString name = QFileInfo(path).fileName();
    const std::string_view format = formatOf(name);
    if (format.empty()) continue;
    const QString program = programOfFormat(format);
    if (!programs.contains(program)) programs << program;
    Documents& of = documents[program];
    (name.startsWith("UNSYNCED") ? of.unsynced : of.synced) << path;
  }
  QList<QVariantList> rows;
  for (const QString& program : programs) {
    const Documents& of = documents[program];
    const QStringList all = of.synced + of.unsynced;
    rows << QVariantList{program, all.size(), all.front(), contentOf(of, leftOut), all};
  }
  return rows;
}

}  // namespace app
