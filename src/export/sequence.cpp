#include "export/sequence.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "export/frame_rate.h"
#include "export/media.h"
#include "export/text.h"
#include "project/look_up.h"

namespace timeline {
namespace {

/// Choices with the seconds that speak for each, in the order in which they came up.
template <typename Choice>
class Votes {
 public:
  void add(const Choice& choice, double seconds) {
    const auto known = std::ranges::find(votes_, choice, &std::pair<Choice, double>::first);
    if (known == votes_.end())
      votes_.emplace_back(choice, seconds);
    else
      known->second += seconds;
  }
  bool empty() const { return votes_.empty(); }
  bool agree() const { return votes_.size() == 1; }
  Choice winner() const {
    return std::ranges::max_element(votes_, {}, &std::pair<Choice, double>::second)->first;
  }

 private:
  std::vector<std::pair<Choice, double>> votes_;
};

struct PictureVotes {
  Votes<double> rates;
  Votes<PictureSize> sizes;
};

PictureVotes votesOf(const project::Project& project) {
  PictureVotes votes;
  for (const project::Recording* recording : allRecordings(project)) {
    const auto& picture = mainFile(*recording).facts.picture;
    if (!picture || !recording->usable) continue;
    const double seconds = std::max(picture->lengthSeconds, recording->lengthSeconds);
    if (picture->rate.known()) votes.rates.add(usualRate(picture->rate.perSecond()), seconds);
    if (const PictureSize size = shownSize(*picture); size.width > 0 && size.height > 0)
      votes.sizes.add(size, seconds);
  }
  return votes;
}

std::string sizeText(const Sequence& sequence) {
  return std::to_string(sequence.width) + "x" + std::to_string(sequence.height);
}

std::string reason(const Sequence& sequence, const PictureVotes& votes) {
  if (votes.rates.empty() && votes.sizes.empty())
    return "No picture tells its frame rate or size, so the sequence is " + sizeText(sequence) +
           " at " + numberText(sequence.fps) + " frames per second.";
  const bool all = votes.rates.agree() && votes.sizes.agree();
  return "The sequence is " + sizeText(sequence) + " at " + numberText(sequence.fps) +
         " frames per second, like " + (all ? "the pictures." : "most of the picture time.");
}

std::vector<std::string> variableRates(const project::Project& project) {
  std::vector<std::string> sentences;
  for (const project::Recording* recording : allRecordings(project)) {
    const project::MediaFile& file = mainFile(*recording);
    if (!recording->usable || !file.facts.picture || !file.facts.picture->variableRate) continue;
    const double mean = file.facts.picture->rate.perSecond();
    sentences.push_back(
        file.path + " has a variable frame rate" +
        (mean > 0 ? " (" + numberText(std::round(mean * 100) / 100) + " on average)" : "") +
        ", which editors handle differently. If it does not stay in sync, convert it to a constant "
        "rate first.");
  }
  return sentences;
}

}  // namespace

Sequence sequenceOf(const project::Project& project) {
  const PictureVotes votes = votesOf(project);
  Sequence sequence;
  if (!votes.rates.empty()) sequence.fps = votes.rates.winner();
  if (!votes.sizes.empty()) {
    sequence.width = votes.sizes.winner().width;
    sequence.height = votes.sizes.winner().height;
  }
  const auto& [rate, size] =
      std::pair(project.settings.framesPerSecond, project.settings.frameSize);
  if (rate) sequence.fps = *rate;
  if (size) std::tie(sequence.width, sequence.height) = std::pair(size->width, size->height);
  if (!rate || !size) sequence.why = reason(sequence, votes);
  sequence.notices = variableRates(project);
  return sequence;
}

}  // namespace timeline
