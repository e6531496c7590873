#include "place/links.h"

#include <algorithm>
#include <tuple>

namespace place {

double supportOf(const vote::PairVote& vote) {
  constexpr double kFewHits = 50;  // no more than this say half of what their sections say
  if (!vote.stats) return 0;
  const double hits = vote.stats->bestHits;
  return vote.stats->sections * hits / (hits + kFewHits);
}

std::vector<Link> acceptedLinks(std::span<const align::Recording> recordings,
                                std::span<const vote::PairVote> votes) {
  std::vector<Link> links;
  for (const vote::PairVote& vote : votes) {
    if (vote.accepted == vote::Acceptance::none || !vote.stats) continue;
    links.push_back({vote.first, vote.second, vote.stats->bestOffset, supportOf(vote)});
  }
  std::ranges::sort(links, {}, [&](const Link& link) {
    return std::tuple(-link.support, std::string_view(recordings[link.first].name),
                      std::string_view(recordings[link.second].name), link.first, link.second);
  });
  return links;
}

double confidenceOf(std::span<const Link> links) {
  constexpr double kEven = 2;  // a link of this support is as likely right as wrong
  double allWrong = 1;
  for (const Link& link : links) allWrong *= kEven / (link.support + kEven);
  return 1 - allWrong;
}

}  // namespace place
