#include <algorithm>
#include <cmath>

#include "app/clip_facts.h"
#include "app/workspace.h"
#include "project/edit.h"
#include "project/look_up.h"

namespace app {
namespace {

using project::Id;

std::vector<Id> idsOf(const QList<int>& recordings) {
  return {recordings.begin(), recordings.end()};
}

}  // namespace

QString Workspace::called(const QString& what, const QList<int>& recordings) const {
  if (recordings.size() != 1) return tr("%1 %2 clips").arg(what).arg(recordings.size());
  return tr("%1 %2").arg(what, facts(recordings.front()).value("name").toString());
}

void Workspace::move(const QList<int>& recordings, double seconds) {
  advance(project::moveClips(project(), idsOf(recordings), seconds),
          called(tr("Move"), recordings));
}

void Workspace::place(int recording, int group, double startSeconds) {
  advance(project::placeClip(project(), recording, group, startSeconds),
          called(tr("Place"), {recording}));
}

void Workspace::unplace(const QList<int>& recordings) {
  advance(project::unplaceClips(project(), idsOf(recordings)), called(tr("Take out"), recordings));
}

bool Workspace::all(const QList<int>& recordings, bool project::Clip::*is) const {
  return std::ranges::all_of(recordings, [&](int recording) {
    const project::Clip* clip = project::clipOf(project(), recording);
    return clip && clip->*is;
  });
}

void Workspace::confirm(const QList<int>& recordings) {
  const bool on = !all(recordings, &project::Clip::confirmed);
  advance(project::confirmClips(project(), idsOf(recordings), on),
          called(tr("Confirm"), recordings));
}

void Workspace::exclude(const QList<int>& recordings) {
  const bool on = !all(recordings, &project::Clip::excluded);
  advance(project::excludeClips(project(), idsOf(recordings), on),
          called(tr("Exclude"), recordings));
}

void Workspace::pin(const QList<int>& recordings) {
  const bool on = !all(recordings, &project::Clip::pinned);
  advance(project::pinClips(project(), idsOf(recordings), on), called(tr("Pin"), recordings));
}

void Workspace::toNextPlace(int recording) {
  constexpr double kSame = 0.02;  // seconds; nearer places are one
  const auto places = project::likelyPlaces(project(), recording);
  if (places.empty()) return;
  const project::Clip* clip = project::clipOf(project(), recording);
  const auto here = std::ranges::find_if(places, [&](const project::LikelyPlace& place) {
    return clip && place.group == project::groupOf(project(), recording)->id &&
           std::abs(place.startSeconds - clip->startSeconds) < kSame;
  });
  const auto next = here == places.end() || here + 1 == places.end() ? places.begin() : here + 1;
  place(recording, next->group, next->startSeconds);
}

double Workspace::snapped(int recording, double seconds, double reach) const {
  const project::Clip* clip = project::clipOf(project(), recording);
  if (!clip) return seconds;
  const Id group = project::groupOf(project(), recording)->id;
  double best = seconds, nearest = reach;
  for (const project::LikelyPlace& place : project::likelyPlaces(project(), recording)) {
    const double by = place.startSeconds - clip->startSeconds;
    if (place.group != group || std::abs(by - seconds) >= nearest) continue;
    nearest = std::abs(by - seconds);
    best = by;
  }
  return best;
}

QList<double> Workspace::likelyStarts(int recording) const {
  QList<double> starts;
  const project::Group* group = project::groupOf(project(), recording);
  if (!group || group->clips.empty()) return starts;
  const double origin =
      std::ranges::min_element(group->clips, {}, &project::Clip::startSeconds)->startSeconds;
  for (const project::LikelyPlace& place : project::likelyPlaces(project(), recording))
    if (place.group == group->id) starts << place.startSeconds - origin;
  return starts;
}

QVariantMap Workspace::facts(int recording) const { return clipFacts(project(), recording); }

int Workspace::bestMatch(int recording) const {
  const project::Clip* clip = project::clipOf(project(), recording);
  return clip && !clip->matchedWith.empty() ? clip->matchedWith.front() : 0;
}

}  // namespace app
