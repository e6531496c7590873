#pragma once

#include <cstddef>
#include <mutex>
#include <string>

#ifndef UNICODE
#define UNICODE  // the library's functions then take and give wide text
#endif
#include <MediaInfoDLL/MediaInfoDLL_Static.h>

#include "run/library.h"

namespace run {

/// The MediaInfo library, loaded at run time through its published plain functions. Callable from
/// any thread.
class MediaInfoLibrary {
 public:
  explicit MediaInfoLibrary(std::string fileName) : fileName_(std::move(fileName)) {}

  /// The one of this process: "MediaInfo.dll", elsewhere "libmediainfo.so.0".
  static MediaInfoLibrary& shared();

  /// Counts a use and loads the library at the first one. Returns 1, or -1 if the library is not
  /// there or lacks one of its entry points.
  int load();
  /// Ends a use; the last one unloads.
  void unload();

  // The functions in use; null unless loaded.
  decltype(&::MediaInfo_New) create = nullptr;
  decltype(&::MediaInfo_Delete) destroy = nullptr;
  decltype(&::MediaInfo_Open) open = nullptr;
  decltype(&::MediaInfo_GetI) get = nullptr;

 private:
  bool resolve();

  std::string fileName_;
  std::mutex mutex_;
  Library library_;
  int uses_ = 0;
};

}  // namespace run
