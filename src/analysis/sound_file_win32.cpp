#define ENABLE_SNDFILE_WINDOWS_PROTOTYPES 1
#include "analysis/sound_file.h"
#include "report/files.h"

namespace analysis {

SoundFile openSoundFile(const std::string& path, SF_INFO& info) {
  return SoundFile(sf_wchar_open(report::fromUtf8(path).c_str(), SFM_READ, &info));
}

}  // namespace analysis
