#include "app/result_texts.h"

#include <QCoreApplication>

#include "project/look_up.h"

namespace app {
namespace {

struct ResultTexts {
  Q_DECLARE_TR_FUNCTIONS(app::ResultTexts)
};

}  // namespace

Tally tallyOf(const project::Project& project) {
  Tally tally;
  for (const project::Recording* recording : project::allRecordings(project)) {
    const project::State state = project::stateOf(project, *recording);
    ++tally.all;
    if (state == project::State::unplaced)
      ++tally.unplaced;
    else if (state == project::State::unusable)
      ++tally.unusable;
    else
      ++tally.placed;
    if (state == project::State::lookHere) ++tally.unsure;
  }
  return tally;
}

QString summaryOf(const project::Project& project) {
  const Tally tally = tallyOf(project);
  if (tally.placed == 0) return ResultTexts::tr("No two recordings matched.");
  const QString recordings =
      ResultTexts::tr("%1 of %n recordings synchronised", nullptr, tally.all).arg(tally.placed);
  const auto groups = static_cast<int>(project.groups.size());
  QString text = groups == 1 ? ResultTexts::tr("%1 in one group").arg(recordings)
                             : ResultTexts::tr("%1 in %n groups", nullptr, groups).arg(recordings);
  if (tally.unsure > 0)
    text += QString::fromUtf8(" · ") + ResultTexts::tr("%n to look at", nullptr, tally.unsure);
  return text;
}

QString asSentence(const std::string& text) {
  QString sentence = QString::fromStdString(text);
  if (!sentence.isEmpty()) sentence[0] = sentence[0].toUpper();
  if (!sentence.isEmpty() && !sentence.endsWith('.')) sentence += '.';
  return sentence;
}

}  // namespace app
