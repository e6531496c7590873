#pragma once

#include <string>
#include <string_view>

namespace project {

/// The folder that holds a card's or a recorder's files: `folder` without the folders at its end
/// that devices make themselves (DCIM/100MEDIA, PRIVATE/M4ROOT/CLIP, CONTENTS/CLIPS001).
std::string_view cardFolder(std::string_view folder);

/// The last part of a path, and the path before it without its separator.
std::string_view lastPart(std::string_view path);
std::string_view folderOf(std::string_view path);

/// The name without its extension.
std::string_view stem(std::string_view name);

/// What a file name says of its place among the files of its device.
struct ClipName {
  std::string take;      // the name that all tracks of one recording share
  std::string track;     // what tells the tracks apart, in lower case ("tr1", "lr"); mostly empty
  std::string series;    // the take with every number as "#"; alike for the clips of one device
  bool counted = false;  // the name ends with a number as devices count: of three digits or more
};

/// `name` is a file's name without extension.
ClipName readClipName(std::string_view name);

/// Whether a folder or series is called as people call a device: cam, recorder, zoom ...
bool soundsLikeDevice(std::string_view name);

/// Whether a folder's name says nothing of its device: a drive letter, "NO NAME", "Untitled".
bool saysNothing(std::string_view folder);

}  // namespace project
