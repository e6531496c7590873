#pragma once

#include <array>
#include <concepts>
#include <string_view>
#include <type_traits>
#include <utility>

#include "project/project.h"

namespace project {

// The fields of a project's file, once for reading and writing: `fields(visitor, part)` calls the
// visitor with the name of each field and the field itself, which the one fills and the other
// reads. A visitor has operator() for values, lists and parts, `word` for a value of a closed set,
// `path` for a file's place, and `unknown` for what else stands there. docs/project.md tells what
// the fields mean to others.

template <class T, class Part>
concept Like = std::same_as<std::remove_const_t<T>, Part>;

template <class Value, std::size_t size>
using Words = std::array<std::pair<Value, std::string_view>, size>;

inline constexpr Words<Scan, 3> kScans{{{Scan::progressive, "progressive"},
                                        {Scan::topFieldFirst, "top_field_first"},
                                        {Scan::bottomFieldFirst, "bottom_field_first"}}};
inline constexpr Words<DeviceKind, 3> kDeviceKinds{{{DeviceKind::unknown, "unknown"},
                                                    {DeviceKind::camera, "camera"},
                                                    {DeviceKind::recorder, "recorder"}}};
inline constexpr Words<PlacedBy, 3> kPlacedBy{
    {{PlacedBy::sound, "sound"}, {PlacedBy::hand, "hand"}, {PlacedBy::clock, "clock"}}};

void fields(auto& visit, Like<Rate> auto& rate) {
  visit("units", rate.units);
  visit("seconds", rate.seconds);
}

void fields(auto& visit, Like<Picture> auto& picture) {
  visit("rate", picture.rate);
  visit("variable_rate", picture.variableRate);
  visit("width", picture.width);
  visit("height", picture.height);
  visit("rotation", picture.rotation);
  visit("pixel_aspect", picture.pixelAspect);
  visit.word("scan", picture.scan, kScans);
  visit("length_seconds", picture.lengthSeconds);
}

void fields(auto& visit, Like<Sound> auto& sound) {
  visit("channels", sound.channels);
  visit("rate", sound.rate);
  visit("bits", sound.bits);
  visit("layout", sound.layout);
  visit("length_seconds", sound.lengthSeconds);
  visit("start_seconds", sound.startSeconds);
}

void fields(auto& visit, Like<Timecode> auto& timecode) {
  visit("rate", timecode.rate);
  visit("units", timecode.units);
  visit("drop_frame", timecode.dropFrame);
}

void fields(auto& visit, Like<MediaFacts> auto& facts) {
  visit("picture", facts.picture);
  visit("sounds", facts.sounds);
  visit("timecode", facts.timecode);
  visit("device_model", facts.deviceModel);
  visit("recorded_at", facts.recordedAt);
  visit("length_seconds", facts.lengthSeconds);
}

void fields(auto& visit, Like<MediaFile> auto& file) {
  visit.path("path", file.path);
  visit("bytes", file.bytes);
  visit("modified", file.modified);
  visit("facts", file.facts);
  visit.unknown(file.unknown);
}

void fields(auto& visit, Like<Reason> auto& reason) {
  visit("reason", reason.reason);
  visit("remedy", reason.remedy);
}

void fields(auto& visit, Like<Recording> auto& recording) {
  visit("id", recording.id);
  visit("files", recording.files);
  visit("length_seconds", recording.lengthSeconds);
  visit("sound_start_seconds", recording.soundStartSeconds);
  visit("heard_stream", recording.heardStream);
  visit("usable", recording.usable);
  visit("left_out", recording.leftOut);
  visit.unknown(recording.unknown);
}

void fields(auto& visit, Like<Device> auto& device) {
  visit("id", device.id);
  visit("name", device.name);
  visit.word("kind", device.kind, kDeviceKinds);
  visit("recordings", device.recordings);
  visit.unknown(device.unknown);
}

void fields(auto& visit, Like<Clip> auto& clip) {
  visit("recording", clip.recording);
  visit("start_seconds", clip.startSeconds);
  visit.word("placed_by", clip.placedBy, kPlacedBy);
  visit("confidence", clip.confidence);
  visit("error_seconds", clip.errorSeconds);
  visit("drift_ppm", clip.driftPpm);
  visit("one_clock_shift_seconds", clip.oneClockShiftSeconds);
  visit("matched_with", clip.matchedWith);
  visit("confirmed", clip.confirmed);
  visit("pinned", clip.pinned);
  visit("excluded", clip.excluded);
  visit.unknown(clip.unknown);
}

void fields(auto& visit, Like<Group> auto& group) {
  visit("id", group.id);
  visit("name", group.name);
  visit("clips", group.clips);
  visit.unknown(group.unknown);
}

void fields(auto& visit, Like<Likely> auto& place) {
  visit("offset_seconds", place.offsetSeconds);
  visit("weight", place.weight);
}

void fields(auto& visit, Like<PairEvidence> auto& pair) {
  visit("first", pair.first);
  visit("second", pair.second);
  visit("places", pair.places);
  visit.unknown(pair.unknown);
}

void fields(auto& visit, Like<FrameSize> auto& size) {
  visit("width", size.width);
  visit("height", size.height);
}

void fields(auto& visit, Like<Settings> auto& settings) {
  visit("tolerance", settings.tolerance);
  visit("mode", settings.mode);
  visit("by_sound", settings.bySound);
  visit("frames_per_second", settings.framesPerSecond);
  visit("frame_size", settings.frameSize);
  visit("formats", settings.formats);
  visit("compact_xmeml", settings.compactXmeml);
  visit("clips_by_clock", settings.clipsByClock);
  visit("camera_sound", settings.cameraSound);
  visit("drift", settings.drift);
  visit("replace_audio", settings.replaceAudio);
  visit.unknown(settings.unknown);
}

void fields(auto& visit, Like<Written> auto& written) {
  visit.path("folder", written.folder);
  visit("time", written.time);
  visit.paths("files", written.files);
  visit("notices", written.notices);
  visit.unknown(written.unknown);
}

void fields(auto& visit, Like<Project> auto& project) {
  visit("settings", project.settings);
  visit("devices", project.devices);
  visit("groups", project.groups);
  visit("evidence", project.evidence);
  visit("written", project.written);
  visit.unknown(project.unknown);
}

}  // namespace project
