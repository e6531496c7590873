#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace project {

/// A media file as far as it tells which device made it.
struct SourceFile {
  std::string path;         // UTF-8, parts separated by "/" or "\"
  bool picture = false;     // false: sound alone
  std::string make, model;  // of the device as the file names them; empty if it does not
};

/// Files that one device made at the same time: a camera's clip, or the tracks of a recorder. Holds
/// indices into the given files, the one that is best listened to first.
using DetectedRecording = std::vector<std::size_t>;

struct DetectedDevice {
  std::string name;  // as people would call it; no two of a result are alike
  bool picture = false;
  std::vector<DetectedRecording> recordings;  // in the order of their names, clip 2 before clip 10
};

/// Which devices made `files`, told by folders, names, and makes and models, in the order in which
/// they first appear. The files of a folder are of one device if they name the same model, count
/// their clips on (C0001, C0002), or lie in a folder of their own that is called as a device is
/// ("Cam 1"); the folders of a card's structure, such as DCIM/100MEDIA, belong to the folder above
/// them. Pictures and sounds are never of one device. What nothing speaks for stands alone: a
/// recording too many on a device cannot be matched with the others there. Pure.
std::vector<DetectedDevice> detectDevices(std::span<const SourceFile> files);

/// Whether `first` comes before `second`, counting their numbers as such and letter case as none.
bool comesBefore(std::string_view first, std::string_view second);

}  // namespace project
