#pragma once

#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include "bench/events/sets.h"

namespace events {

/// A set and its takes' sounds at kRate, in the takes' order.
struct RenderedSet {
  Set set;
  std::vector<std::vector<float>> sounds;
};

/// Renders sets, and keeps what it rendered on disk: measuring the same seeds again then costs next
/// to nothing. What is kept is found again only by a program with the same generator, drawing on
/// the same sounds. Callable from several threads.
class Renderer {
 public:
  /// `sounds`: the folder of real sound; `cache`: where to keep sets, nowhere if empty.
  Renderer(std::filesystem::path sounds, std::filesystem::path cache);

  RenderedSet operator()(const std::string& kind, unsigned seed);

 private:
  const SoundLibrary& library();
  std::filesystem::path fileOf(const std::string& kind, unsigned seed) const;

  std::filesystem::path sounds_, cache_;
  std::string fingerprint_;  // of the generator and the sounds it draws on
  std::once_flag loaded_;
  SoundLibrary library_;  // loaded when the first set is rendered
};

}  // namespace events
