#include "analysis/sound_file.h"

namespace analysis {

SoundFile openSoundFile(const std::string& path, SF_INFO& info) {
  return SoundFile(sf_open(path.c_str(), SFM_READ, &info));
}

}  // namespace analysis
