#include "app/clip_facts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <cmath>
#include <limits>

#include "app/clock_text.h"
#include "project/look_up.h"

namespace app {
namespace {

struct FactTexts {
  Q_DECLARE_TR_FUNCTIONS(app::FactTexts)
};

QString fileName(const project::Recording& recording) {
  return QFileInfo(QString::fromStdString(project::mainFile(recording).path)).fileName();
}

QString stateText(project::State state) {
  switch (state) {
    case project::State::sure:
      return FactTexts::tr("Sure");
    case project::State::lookHere:
      return FactTexts::tr("Look here");
    case project::State::byHand:
      return FactTexts::tr("Placed by hand");
    case project::State::byClock:
      return FactTexts::tr("By the clock, to about 2 s");
    case project::State::excluded:
      return FactTexts::tr("Excluded from the documents");
    case project::State::unplaced:
      return FactTexts::tr("Has no place");
    case project::State::unusable:
      return FactTexts::tr("Cannot be used");
  }
  return {};
}

QString matchedText(const project::Project& project, const project::Clip& clip) {
  constexpr std::size_t kNamed = 2;
  QStringList names;
  for (std::size_t i = 0; i < std::min(kNamed, clip.matchedWith.size()); ++i)
    if (const auto* other = project::findRecording(project, clip.matchedWith[i]))
      names << fileName(*other);
  const auto more = static_cast<int>(clip.matchedWith.size()) - static_cast<int>(names.size());
  QString text = names.join(", ");
  if (more > 0) text += " " + FactTexts::tr("and %1 more").arg(more);
  return text;
}

double groupStart(const project::Group& group) {
  double start = std::numeric_limits<double>::infinity();
  for (const project::Clip& clip : group.clips) start = std::min(start, clip.startSeconds);
  return start;
}

void addPlace(QVariantMap& facts, const project::Project& project, const project::Clip& clip) {
  const project::Group& group = *project::groupOf(project, clip.recording);
  const bool bySound = clip.placedBy == project::PlacedBy::sound;
  facts["place"] = clockText(clip.startSeconds - groupStart(group), 3);
  facts["exact"] = bySound && clip.errorSeconds
                       ? QString::fromUtf8("± %1 ms").arg(plainNumber(*clip.errorSeconds * 1000, 1))
                       : QString();
  facts["confidence"] = bySound ? QString("%1 %").arg(qRound(clip.confidence * 100)) : QString();
  facts["matched"] = matchedText(project, clip);
  facts["drift"] =
      clip.driftPpm ? FactTexts::tr("%1 ppm").arg(plainNumber(*clip.driftPpm, 1)) : QString();
  facts["confirmed"] = clip.confirmed;
  facts["pinned"] = clip.pinned;
  facts["excluded"] = clip.excluded;
}

}  // namespace

QString plainNumber(double value, int decimals) {
  const double unit = std::pow(10.0, decimals);
  const double rounded = std::round(value * unit) / unit + 0.0;  // turns -0 into 0
  return QLocale().toString(rounded, 'f', decimals);
}

QVariantMap clipFacts(const project::Project& project, project::Id recording) {
  QVariantMap facts;
  const project::Recording* found = project::findRecording(project, recording);
  if (!found) return facts;
  const project::Clip* clip = project::clipOf(project, recording);
  facts["name"] = fileName(*found);
  facts["path"] = QString::fromStdString(project::mainFile(*found).path);
  facts["device"] = QString::fromStdString(project::deviceOf(project, recording)->name);
  facts["length"] = clockText(found->lengthSeconds, 3);
  facts["state"] = stateText(project::stateOf(project, *found));
  facts["stateNumber"] = static_cast<int>(project::stateOf(project, *found));
  facts["placed"] = clip != nullptr;
  if (clip) addPlace(facts, project, *clip);
  return facts;
}

}  // namespace app
