#pragma once

#include <string>
#include <string_view>

namespace timeline {

// The fixed fragments of xmeml version 4, joined by the caller. Nothing is escaped but what
// `xmemlPathUrl` escapes: names and paths are handed in ready for XML. Frame values are
// |seconds * fps| in single precision; ids are the files' numbers.

std::string xmemlProject(std::string_view name, std::string_view children);

/// `id` is the value of the id attribute. With `premiere` 1 the attribute block follows it, which
/// starts with two blanks: the id then brings its own closing quote ("sequence-1\""). The duration
/// is always 20000.
std::string xmemlSequence(std::string_view id, std::string_view name, float fps,
                          std::string_view videoTracks, std::string_view audioTracks, int premiere);

/// Attributes by which Premiere restores its windows. Begins with two blanks and leaves its last
/// value open.
extern const std::string_view kPremiereBlock;

/// Two tracks, one for each channel of a stereo file.
std::string xmemlAudioTracks(int id, float offset, float duration, float fps);

std::string xmemlVideoTrack(int id, float offset, float duration, float fps);

/// The master clip of a file.
std::string xmemlClip(std::string_view name, float fps, std::string_view fileElement,
                      std::string_view mediaElement, float duration);

/// "file://localhost/" and the path with forward slashes, twelve characters percent-encoded.
std::string xmemlPathUrl(std::string_view path);

/// The file element of a master clip.
std::string xmemlFile(int id, std::string_view pathUrl);

/// The media element of a sound file's master clip, left open: the caller ends it with "</media>".
std::string xmemlWavMedia(int id, std::string_view pathUrl);

}  // namespace timeline
