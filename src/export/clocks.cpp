#include "export/clocks.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "export/lanes.h"
#include "export/media.h"

namespace timeline {
namespace {

constexpr double kMillionth = 1e-6;
constexpr int kSweeps = 60;  // of the relaxation: errors shrink by more than half in each

double lengthOf(const Project& project, const Clip& clip) {
  return std::min(clip.lengthSeconds, lengthSeconds(project.media[clip.media]));
}

/// Of the camera with most picture whose drift is known; 0 without one.
double clockOfGroup(const Project& project, const Group& group) {
  const std::vector<int> devices = deviceKeys(project);
  std::map<int, double> picture;
  for (const Clip& clip : group.clips)
    picture[devices[clip.media]] += project.media[clip.media].pictureSeconds;
  const Clip* best = nullptr;
  const auto shown = [&](const Clip& clip) { return picture[devices[clip.media]]; };
  for (const Clip& clip : group.clips)
    if (clip.driftPpm && shown(clip) > 0 && (!best || shown(clip) > shown(*best))) best = &clip;
  return best ? *best->driftPpm : 0;
}

/// What two clips have in common, by the places they were found at: the position of one against
/// the other is right in its middle.
struct Shared {
  int first, second;
  double firstMoment, secondMoment;  // of the files
  double seconds;
};

std::vector<Shared> sharedTimes(const Project& project, const Group& group) {
  std::vector<Shared> all;
  const int count = static_cast<int>(group.clips.size());
  for (int i = 0; i < count; ++i)
    for (int j = i + 1; j < count; ++j) {
      const Clip &a = group.clips[i], &b = group.clips[j];
      const double from = std::max(a.startSeconds, b.startSeconds);
      const double to =
          std::min(a.startSeconds + lengthOf(project, a), b.startSeconds + lengthOf(project, b));
      const double middle = (from + to) / 2;
      if (to > from)
        all.push_back({i, j, middle - a.startSeconds, middle - b.startSeconds, to - from});
    }
  return all;
}

/// Where `other` would start by what it shares with a clip that stands at `start`.
double startBy(double start, double startRate, double moment, double otherRate,
               double otherMoment) {
  return start + moment / startRate - otherMoment / otherRate;
}

/// Longest common times first: every clip gets a start from one that has one.
void spread(std::vector<OneClock>& clocks, std::vector<Shared> shared) {
  std::ranges::stable_sort(shared, std::greater<>(), &Shared::seconds);
  std::vector<bool> stands(clocks.size(), false);
  for (std::size_t root = 0; root < clocks.size(); ++root) {
    if (stands[root]) continue;
    stands[root] = true;
    for (bool found = true; found;) {
      found = false;
      for (const Shared& s : shared) {
        if (stands[s.first] == stands[s.second]) continue;
        OneClock &a = clocks[s.first], &b = clocks[s.second];
        if (stands[s.first])
          b.startSeconds =
              startBy(a.startSeconds, a.playRate, s.firstMoment, b.playRate, s.secondMoment);
        else
          a.startSeconds =
              startBy(b.startSeconds, b.playRate, s.secondMoment, a.playRate, s.firstMoment);
        stands[s.first] = stands[s.second] = found = true;
        break;
      }
    }
  }
}

/// Every clip moves to the mean of what all others say of it, weighed by the time they share.
void relax(std::vector<OneClock>& clocks, const std::vector<Shared>& shared) {
  for (int sweep = 0; sweep < kSweeps; ++sweep) {
    std::vector<double> sums(clocks.size(), 0), weights(clocks.size(), 0);
    for (const Shared& s : shared) {
      const OneClock &a = clocks[s.first], &b = clocks[s.second];
      const double off =
          startBy(a.startSeconds, a.playRate, s.firstMoment, b.playRate, s.secondMoment) -
          b.startSeconds;
      sums[s.second] += off * s.seconds;
      sums[s.first] -= off * s.seconds;
      weights[s.first] += s.seconds;
      weights[s.second] += s.seconds;
    }
    for (std::size_t i = 0; i < clocks.size(); ++i)
      if (weights[i] > 0) clocks[i].startSeconds += sums[i] / weights[i] / 2;
  }
}

void setMiddles(std::vector<OneClock>& clocks, const std::vector<Shared>& shared) {
  std::vector<double> sums(clocks.size(), 0), weights(clocks.size(), 0);
  const auto add = [&](int clip, double moment, double weight) {
    sums[clip] += moment * weight;
    weights[clip] += weight;
  };
  for (const Shared& s : shared) {
    add(s.first, s.firstMoment, s.seconds);
    add(s.second, s.secondMoment, s.seconds);
  }
  for (std::size_t i = 0; i < clocks.size(); ++i)
    if (weights[i] > 0) clocks[i].middleSeconds = sums[i] / weights[i];
}

/// The first frame after `from` that stands otherwise than `from` does; `frames` if none does.
template <typename Place>
std::int64_t nextChange(const Place& place, std::int64_t from, std::int64_t frames) {
  const std::int64_t shift = place(from) - from;
  std::int64_t low = from, step = 1;
  while (low + step < frames && place(low + step) - (low + step) == shift) low += step, step *= 2;
  for (; step > 0; step /= 2)
    if (low + step < frames && place(low + step) - (low + step) == shift) low += step;
  return low + 1;
}

}  // namespace

double OneClock::worstError(double length) const {
  return std::abs(1 / playRate - 1) * std::max(middleSeconds, length - middleSeconds);
}

double OneClock::worstError(const Clip& clip, double length) const {
  const auto error = [&](double moment) {
    return std::abs(clip.startSeconds + moment - clip.sourceSeconds - startSeconds -
                    moment / playRate);
  };
  const double end = std::min(length, clip.sourceSeconds + clip.lengthSeconds);
  return std::max(error(clip.sourceSeconds), error(end));
}

double standsLater(const Group& group, const std::vector<OneClock>& clocks) {
  double steady = 0, all = 0;
  int count = 0;
  for (std::size_t i = 0; i < clocks.size(); ++i) {
    const double later = group.clips[i].startSeconds - clocks[i].uncorrectedStart();
    all += later;
    if (clocks[i].playRate != 1) continue;
    steady += later;
    ++count;
  }
  return count > 0 ? steady / count : all / double(std::max<std::size_t>(clocks.size(), 1));
}

std::vector<OneClock> byOneClock(const Project& project, const Group& group) {
  const double clock = clockOfGroup(project, group);
  std::vector<OneClock> clocks;
  for (const Clip& clip : group.clips)
    clocks.push_back(
        {clip.startSeconds, clip.driftPpm ? 1 + (*clip.driftPpm - clock) * kMillionth : 1, 0});
  const std::vector<Shared> shared = sharedTimes(project, group);
  if (std::ranges::all_of(group.clips, [](const Clip& c) { return c.oneClockStart.has_value(); })) {
    for (std::size_t i = 0; i < clocks.size(); ++i)  // told by the clock that the drifts refer to
      clocks[i].startSeconds = *group.clips[i].oneClockStart * (1 + clock * kMillionth);
  } else {
    spread(clocks, shared);
    relax(clocks, shared);
  }
  setMiddles(clocks, shared);
  return clocks;
}

std::vector<Clip> inPieces(const Clip& clip, const OneClock& clock, double length, FrameRate rate,
                           double phaseSeconds, const QuietMoment& quiet) {
  const double frame = toSeconds(1, rate);
  const auto place = [&](std::int64_t unit) {  // of a frame of the file on the timeline
    const double seconds = clock.startSeconds + double(unit) * frame / clock.playRate;
    return nearestUnit(seconds + phaseSeconds, rate);
  };
  const std::int64_t frames = wholeUnits(length, rate);
  std::vector<Clip> pieces;
  std::int64_t first = 0, change = 0;  // the piece's first frame; where its place became right
  std::int64_t shift = place(0);
  while (first < frames) {
    change = nextChange(place, change, frames);
    std::int64_t next = change;
    if (change < frames)
      next = std::clamp(nearestUnit(quiet(double(change) * frame), rate), first + 1, frames - 1);
    const std::int64_t nextShift = change < frames ? place(change) - change : shift;
    Clip piece = clip;
    piece.sourceSeconds = double(first) * frame;
    piece.startSeconds = double(first + shift) * frame - phaseSeconds;
    piece.lengthSeconds = double(next + nextShift - first - shift) * frame;
    if (piece.lengthSeconds > 0) pieces.push_back(std::move(piece));
    first = next;
    shift = nextShift;
  }
  return pieces;
}

}  // namespace timeline
