#include "run/media_info_library.h"

#include <algorithm>

#include "run/outside_parts.h"

namespace run {
namespace {

// All that the published interface promises, in its order: a library that lacks one of them is
// another release or another library, and is not trusted with the rest.
constexpr const char* kEntryPoints[] = {"MediaInfo_New",
                                        "MediaInfoList_New",
                                        "MediaInfo_Delete",
                                        "MediaInfoList_Delete",
                                        "MediaInfo_Open",
                                        "MediaInfoList_Open",
                                        "MediaInfo_Open_Buffer_Init",
                                        "MediaInfo_Open_Buffer_Continue",
                                        "MediaInfo_Open_Buffer_Continue_GoTo_Get",
                                        "MediaInfo_Open_Buffer_Finalize",
                                        "MediaInfo_Open_NextPacket",
                                        "MediaInfo_Close",
                                        "MediaInfoList_Close",
                                        "MediaInfo_Inform",
                                        "MediaInfoList_Inform",
                                        "MediaInfo_GetI",
                                        "MediaInfoList_GetI",
                                        "MediaInfo_Get",
                                        "MediaInfoList_Get",
                                        "MediaInfo_Output_Buffer_Get",
                                        "MediaInfo_Output_Buffer_GetI",
                                        "MediaInfo_Option",
                                        "MediaInfoList_Option",
                                        "MediaInfo_State_Get",
                                        "MediaInfoList_State_Get",
                                        "MediaInfo_Count_Get",
                                        "MediaInfoList_Count_Get",
                                        "MediaInfoList_Count_Get_Files"};

template <class Function>
void take(const Library& library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(library.entryPoint(name));
}

}  // namespace

MediaInfoLibrary& MediaInfoLibrary::shared() {
  static MediaInfoLibrary library(kMediaInfoFile);
  return library;
}

int MediaInfoLibrary::load() {
  const std::lock_guard lock(mutex_);
  if (!library_.loaded() && !(library_.load(fileName_) && resolve())) {
    library_.unload();
    return -1;
  }
  ++uses_;
  return 1;
}

void MediaInfoLibrary::unload() {
  const std::lock_guard lock(mutex_);
  if (uses_ > 0 && --uses_ == 0) library_.unload();
}

bool MediaInfoLibrary::resolve() {
  const bool whole = std::ranges::all_of(
      kEntryPoints, [&](const char* name) { return library_.entryPoint(name) != nullptr; });
  take(library_, "MediaInfo_New", create);
  take(library_, "MediaInfo_Delete", destroy);
  take(library_, "MediaInfo_Open", open);
  take(library_, "MediaInfo_GetI", get);
  return whole;
}

}  // namespace run
