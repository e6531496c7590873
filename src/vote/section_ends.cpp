#include "vote/section_ends.h"

#include <bit>

namespace vote {
namespace {

constexpr int kNowhere = -1;

int highest(std::uint32_t sections) { return kSectionBits - 1 - std::countl_zero(sections); }

}  // namespace

SectionEnds::SectionEnds(Places places, std::span<const int> filled) {
  first_.fill(kNowhere), last_.fill(kNowhere);
  for (const int place : filled) all_ |= places[place];
  std::uint32_t missing = all_;
  for (auto next = filled.begin(); missing != 0; ++next)
    note(first_, places[*next], *next, missing);
  missing = all_;
  for (auto next = filled.rbegin(); missing != 0; ++next)
    note(last_, places[*next], *next, missing);
  if (all_ == 0) return;
  lastHit_ = endOf(highest(all_));
  lastButOne_ = hitBefore(places, lastHit_);
}

PlacedHit SectionEnds::firstAfter(PlacedHit hit) const {
  const std::uint32_t later = all_ >> hit.section >> 1 << hit.section << 1;
  if (later == 0) return kNoHit;
  const int section = std::countr_zero(later);
  return {section, first_[section]};
}

std::vector<bool> SectionEnds::crossings(std::size_t places) const {
  std::vector<bool> crossing(places);
  for (const int last : last_)
    for (int away = -kReachPlaces; last != kNowhere && away <= kReachPlaces; ++away)
      crossing[last + away] = true;
  if (lastButOne_ != kNoHit) crossing[lastButOne_.place] = true;
  return crossing;
}

void SectionEnds::note(Ends& ends, std::uint32_t sections, int place, std::uint32_t& missing) {
  for (std::uint32_t found = sections & missing; found != 0; found &= found - 1)
    ends[std::countr_zero(found)] = place;
  missing &= ~sections;
}

PlacedHit SectionEnds::hitBefore(Places places, PlacedHit hit) const {
  for (int place = hit.place - 1; place >= first_[hit.section]; --place)
    if (has(places[place], hit.section)) return {hit.section, place};
  const std::uint32_t earlier = all_ & ((std::uint32_t{1} << hit.section) - 1);
  return earlier == 0 ? kNoHit : endOf(highest(earlier));
}

}  // namespace vote
