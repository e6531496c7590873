#pragma once

#include <sndfile.h>

#include <memory>
#include <string>

namespace analysis {

struct CloseSoundFile {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSoundFile>;

/// Opens a sound file for reading and fills `info`; null if that fails. `path` is UTF-8, whatever
/// the platform's own text for file names is.
SoundFile openSoundFile(const std::string& path, SF_INFO& info);

}  // namespace analysis
