#define ENABLE_SNDFILE_WINDOWS_PROTOTYPES 1
#include <filesystem>

#include "analysis/sound_file.h"

namespace analysis {

SoundFile openSoundFile(const std::string& path, SF_INFO& info) {
  const std::filesystem::path wide(std::u8string(path.begin(), path.end()));
  return SoundFile(sf_wchar_open(wide.c_str(), SFM_READ, &info));
}

}  // namespace analysis
