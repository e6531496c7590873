#include <algorithm>
#include <csignal>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "run/process.h"

namespace run {
namespace {

// Exit codes by which Windows tells that it ended a program.
constexpr std::uint32_t kNoMemory = 0xC0000017, kNoPagingFile = 0xC000012D;
constexpr std::uint32_t kNoLibrary = 0xC0000135, kNoEntryPoint = 0xC0000139;
constexpr std::uint32_t kBadAccess = 0xC0000005, kBadHeap = 0xC0000374;

bool says(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::ranges::any_of(words, [&](auto word) { return text.find(word) != text.npos; });
}

bool endedWith(const ProcessResult& result, std::initializer_list<std::uint32_t> codes) {
  return std::ranges::count(codes, static_cast<std::uint32_t>(result.exitCode)) > 0;
}

}  // namespace

bool hadNoRoom(const ProcessResult& result) {
  return result.driveFull || says(result.messages, {"No space left", "Disk quota exceeded"});
}

bool hadNoMemory(const ProcessResult& result) {
  if (result.ok()) return false;
  // the program itself, the loader of its libraries, the start of a process
  return says(result.messages, {"Cannot allocate memory", "failed to map segment"}) ||
         says(result.started.error, {"Cannot allocate memory"}) ||
         endedWith(result, {kNoMemory, kNoPagingFile});
}

std::string brokenPartOf(const ProcessResult& result) {
  if (endedWith(result, {kNoLibrary, kNoEntryPoint})) return "a library of it is missing";
  constexpr std::string_view sign = "error while loading shared libraries: ";
  const std::size_t at = result.messages.find(sign);
  if (result.ok() || at == std::string::npos) return {};
  const std::size_t begin = at + sign.size();
  return result.messages.substr(begin, result.messages.find_first_of("\r\n", begin) - begin);
}

bool hasCrashed(const ProcessResult& result) {
  const auto faults = {SIGSEGV, SIGABRT, SIGILL, SIGFPE};
  return std::ranges::count(faults, result.signal) > 0 || endedWith(result, {kBadAccess, kBadHeap});
}

}  // namespace run
