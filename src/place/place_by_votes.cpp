#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include "place/links.h"
#include "place/offset_forest.h"
#include "place/placement.h"
#include "place/sentences.h"

namespace place {
namespace {

constexpr double kTolerance = 0.1;  // seconds by which offsets may differ and clips may overlap

using Recordings = std::span<const align::Recording>;

/// All links weighed against one another.
struct Solution {
  OffsetForest forest;
  std::vector<std::vector<Link>> agreeing;  // by file, best supported first
  std::vector<Link> contradicting;          // each against links that are all better supported
};

/// The strongest links span the groups; the others are held against what those say.
Solution solve(int files, std::span<const Link> strongestFirst) {
  Solution solution{OffsetForest(files), std::vector<std::vector<Link>>(files), {}};
  for (const Link& link : strongestFirst) {
    const auto known = solution.forest.between(link.first, link.second);
    if (known && std::abs(*known - link.offset) > kTolerance) {
      solution.contradicting.push_back(link);
      continue;
    }
    if (!known) solution.forest.join(link.first, link.second, link.offset);
    solution.agreeing[link.first].push_back(link);
    solution.agreeing[link.second].push_back(link);
  }
  return solution;
}

double totalSupport(const std::vector<Link>& links) {
  double sum = 0;
  for (const Link& link : links) sum += link.support;
  return sum;
}

double overlapSeconds(const align::Recording& a, double startA, const align::Recording& b,
                      double startB) {
  const double endA = startA + align::secondsOf(a), endB = startB + align::secondsOf(b);
  return std::min(endA, endB) - std::max(startA, startB);
}

/// The clash whose worse supported recording has the least support of all.
std::optional<Clash> worstClash(Recordings recordings, Solution& solution) {
  std::map<std::pair<int, int>, std::vector<int>> together;  // by group and device
  std::vector<double> support;
  for (int file = 0; file < std::ssize(recordings); ++file) {
    const int device = recordings[file].device;
    if (device >= 0) together[{solution.forest.group(file), device}].push_back(file);
    support.push_back(totalSupport(solution.agreeing[file]));
  }
  const auto worse = [&](int a, int b) {
    return std::tie(support[a], recordings[a].name, b) <
           std::tie(support[b], recordings[b].name, a);
  };
  std::optional<Clash> worst;
  for (const auto& [_, files] : together) {
    for (const int kept : files) {
      for (const int removed : files) {
        if (!worse(removed, kept) || (worst && !worse(removed, worst->removed))) continue;
        const double seconds =
            overlapSeconds(recordings[kept], solution.forest.position(kept), recordings[removed],
                           solution.forest.position(removed));
        if (seconds > kTolerance) worst = Clash{kept, removed, seconds};
      }
    }
  }
  return worst;
}

Placed placed(int file, double offset, const std::vector<Link>& links) {
  Placed member{file, offset, confidenceOf(links), std::nullopt, std::nullopt, {}};
  for (const Link& link : links) member.matchedWith.push_back(link.other(file));
  return member;
}

std::vector<PlacedGroup> groupsOf(Solution& solution) {
  std::map<int, PlacedGroup> byRoot;
  for (int file = 0; file < std::ssize(solution.agreeing); ++file) {
    const auto& links = solution.agreeing[file];
    if (links.empty()) continue;
    byRoot[solution.forest.group(file)].members.push_back(
        placed(file, solution.forest.position(file), links));
  }
  std::vector<PlacedGroup> groups;
  for (auto& [_, group] : byRoot) {
    const auto place = [](const Placed& p) { return std::pair(p.offsetSeconds, p.file); };
    std::ranges::sort(group.members, {}, place);
    const double earliest = group.members.front().offsetSeconds;
    for (Placed& member : group.members) member.offsetSeconds -= earliest;
    groups.push_back(std::move(group));
  }
  std::ranges::sort(groups, {}, [](const PlacedGroup& group) {
    const int first = std::ranges::min(group.members, {}, &Placed::file).file;
    return std::pair(-std::ssize(group.members), first);
  });
  return groups;
}

}  // namespace

Placement placeByVotes(Recordings recordings, std::span<const vote::PairVote> votes) {
  const int files = static_cast<int>(recordings.size());
  std::vector<Link> links = acceptedLinks(recordings, votes);
  Placement placement;
  std::map<int, std::string> takenOut;
  Solution solution = solve(files, links);
  while (const auto clash = worstClash(recordings, solution)) {
    takenOut[clash->removed] = sentence(*clash, recordings);
    placement.doubts.push_back(takenOut[clash->removed]);
    std::erase_if(links, [&](const Link& link) { return link.touches(clash->removed); });
    solution = solve(files, links);
  }
  for (const Link& link : solution.contradicting) {
    const double known = solution.forest.between(link.first, link.second).value();
    placement.doubts.push_back(contradiction(link, known, recordings));
  }
  placement.groups = groupsOf(solution);
  const std::vector<std::string> tried = attempts(recordings, votes);
  for (int file = 0; file < files; ++file) {
    if (!solution.agreeing[file].empty() || recordings[file].samples == 0) continue;
    placement.alone.push_back({file, takenOut.contains(file) ? takenOut[file] : tried[file]});
  }
  return placement;
}

}  // namespace place
