#pragma once

#include <array>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "project/project.h"

namespace project {

// The fields of a project's file, once for reading and writing: a table for each part of a project.
// `fields(visitor, part)` hands each field of a part to the visitor, which the one fills and the
// other reads. A visitor has operator() for values, lists and parts, `word` for a value of a closed
// set, `path` for a file's place, and `unknown` for what else stands there. docs/project.md tells
// what the fields mean to others.

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

template <class Part, class Value>
struct Plain {
  const char* name;
  Value Part::*member;
  void show(auto& visit, auto& part) const { visit(name, part.*member); }
};

template <class Part, class Value, std::size_t size>
struct Word {
  const char* name;
  Value Part::*member;
  const Words<Value, size>& words;
  void show(auto& visit, auto& part) const { visit.word(name, part.*member, words); }
};

template <class Part, class Value>
struct Path {
  const char* name;
  Value Part::*member;
  void show(auto& visit, auto& part) const { visit.path(name, part.*member); }
};

template <class Part, class Value>
struct Paths {
  const char* name;
  Value Part::*member;
  void show(auto& visit, auto& part) const { visit.paths(name, part.*member); }
};

template <class Part, class Value>
struct Rest {
  Value Part::*member;
  void show(auto& visit, auto& part) const { visit.unknown(part.*member); }
};

// How a compiler that deduces nothing for aggregates (clang 16) reads the table.
template <class Part, class Value>
Plain(const char*, Value Part::*) -> Plain<Part, Value>;
template <class Part, class Value, std::size_t size>
Word(const char*, Value Part::*, const Words<Value, size>&) -> Word<Part, Value, size>;
template <class Part, class Value>
Path(const char*, Value Part::*) -> Path<Part, Value>;
template <class Part, class Value>
Paths(const char*, Value Part::*) -> Paths<Part, Value>;
template <class Part, class Value>
Rest(Value Part::*) -> Rest<Part, Value>;

template <class Part>
inline constexpr std::tuple<> kFields;  // every part has its own

template <>
inline constexpr std::tuple kFields<Rate>{Plain{"units", &Rate::units},
                                          Plain{"seconds", &Rate::seconds}};

template <>
inline constexpr std::tuple kFields<Picture>{
    Plain{"rate", &Picture::rate},         Plain{"variable_rate", &Picture::variableRate},
    Plain{"width", &Picture::width},       Plain{"height", &Picture::height},
    Plain{"rotation", &Picture::rotation}, Plain{"pixel_aspect", &Picture::pixelAspect},
    Word{"scan", &Picture::scan, kScans},  Plain{"length_seconds", &Picture::lengthSeconds}};

template <>
inline constexpr std::tuple kFields<Sound>{Plain{"channels", &Sound::channels},
                                           Plain{"rate", &Sound::rate},
                                           Plain{"bits", &Sound::bits},
                                           Plain{"layout", &Sound::layout},
                                           Plain{"length_seconds", &Sound::lengthSeconds},
                                           Plain{"start_seconds", &Sound::startSeconds},
                                           Plain{"index", &Sound::index}};

template <>
inline constexpr std::tuple kFields<Timecode>{Plain{"rate", &Timecode::rate},
                                              Plain{"units", &Timecode::units},
                                              Plain{"drop_frame", &Timecode::dropFrame}};

template <>
inline constexpr std::tuple kFields<MediaFacts>{
    Plain{"picture", &MediaFacts::picture},
    Plain{"sounds", &MediaFacts::sounds},
    Plain{"timecode", &MediaFacts::timecode},
    Plain{"device_model", &MediaFacts::deviceModel},
    Plain{"recorded_at", &MediaFacts::recordedAt},
    Plain{"length_seconds", &MediaFacts::lengthSeconds}};

template <>
inline constexpr std::tuple kFields<MediaFile>{
    Path{"path", &MediaFile::path}, Plain{"bytes", &MediaFile::bytes},
    Plain{"modified", &MediaFile::modified}, Plain{"facts", &MediaFile::facts},
    Rest{&MediaFile::unknown}};

template <>
inline constexpr std::tuple kFields<Reason>{Plain{"reason", &Reason::reason},
                                            Plain{"remedy", &Reason::remedy}};

template <>
inline constexpr std::tuple kFields<Recording>{
    Plain{"id", &Recording::id},
    Plain{"files", &Recording::files},
    Plain{"length_seconds", &Recording::lengthSeconds},
    Plain{"sound_start_seconds", &Recording::soundStartSeconds},
    Plain{"heard_stream", &Recording::heardStream},
    Plain{"usable", &Recording::usable},
    Plain{"left_out", &Recording::leftOut},
    Rest{&Recording::unknown}};

template <>
inline constexpr std::tuple kFields<Device>{Plain{"id", &Device::id}, Plain{"name", &Device::name},
                                            Word{"kind", &Device::kind, kDeviceKinds},
                                            Plain{"recordings", &Device::recordings},
                                            Rest{&Device::unknown}};

template <>
inline constexpr std::tuple kFields<Clip>{
    Plain{"recording", &Clip::recording},
    Plain{"start_seconds", &Clip::startSeconds},
    Word{"placed_by", &Clip::placedBy, kPlacedBy},
    Plain{"confidence", &Clip::confidence},
    Plain{"error_seconds", &Clip::errorSeconds},
    Plain{"drift_ppm", &Clip::driftPpm},
    Plain{"one_clock_shift_seconds", &Clip::oneClockShiftSeconds},
    Plain{"matched_with", &Clip::matchedWith},
    Plain{"confirmed", &Clip::confirmed},
    Plain{"pinned", &Clip::pinned},
    Plain{"excluded", &Clip::excluded},
    Rest{&Clip::unknown}};

template <>
inline constexpr std::tuple kFields<Group>{Plain{"id", &Group::id}, Plain{"name", &Group::name},
                                           Plain{"clips", &Group::clips}, Rest{&Group::unknown}};

template <>
inline constexpr std::tuple kFields<Likely>{Plain{"offset_seconds", &Likely::offsetSeconds},
                                            Plain{"weight", &Likely::weight}};

template <>
inline constexpr std::tuple kFields<PairEvidence>{
    Plain{"first", &PairEvidence::first}, Plain{"second", &PairEvidence::second},
    Plain{"places", &PairEvidence::places}, Rest{&PairEvidence::unknown}};

template <>
inline constexpr std::tuple kFields<FrameSize>{Plain{"width", &FrameSize::width},
                                               Plain{"height", &FrameSize::height}};

template <>
inline constexpr std::tuple kFields<Settings>{
    Plain{"tolerance", &Settings::tolerance},
    Plain{"mode", &Settings::mode},
    Plain{"by_sound", &Settings::bySound},
    Plain{"frames_per_second", &Settings::framesPerSecond},
    Plain{"frame_size", &Settings::frameSize},
    Plain{"formats", &Settings::formats},
    Plain{"compact_xmeml", &Settings::compactXmeml},
    Plain{"clips_by_clock", &Settings::clipsByClock},
    Plain{"camera_sound", &Settings::cameraSound},
    Plain{"drift", &Settings::drift},
    Plain{"replace_audio", &Settings::replaceAudio},
    Rest{&Settings::unknown}};

template <>
inline constexpr std::tuple kFields<Written>{
    Path{"folder", &Written::folder}, Plain{"time", &Written::time},
    Paths{"files", &Written::files}, Plain{"notices", &Written::notices}, Rest{&Written::unknown}};

template <>
inline constexpr std::tuple kFields<Project>{
    Plain{"settings", &Project::settings}, Plain{"devices", &Project::devices},
    Plain{"groups", &Project::groups},     Plain{"evidence", &Project::evidence},
    Plain{"written", &Project::written},   Rest{&Project::unknown}};

template <class Part>
void fields(auto& visit, Part& part) {
  using Table = std::remove_const_t<decltype(kFields<std::remove_const_t<Part>>)>;
  static_assert(std::tuple_size_v<Table> > 0, "a part without fields");
  std::apply([&](const auto&... field) { (field.show(visit, part), ...); },
             kFields<std::remove_const_t<Part>>);
}

}  // namespace project
