#include "cli/option_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <ranges>

#include "export/documents.h"
#include "project/project_file.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/text.h"
#include "run/settings.h"

namespace cli {
namespace {

struct Speed {
  const char* name;
  double tolerance;
};
constexpr Speed kSpeeds[] = {{"fast", run::kFastTolerance},
                             {"default", run::kDefaultTolerance},
                             {"slow", run::kSlowTolerance}};
struct Size {
  std::string_view name;
  int width, height;
};
constexpr Size kSizes[] = {{"auto", 0, 0},        {"720p", 1280, 720},   {"1080p", 1920, 1080},
                           {"1080i", 1920, 1080}, {"1440p", 2560, 1440}, {"2160p", 3840, 2160},
                           {"UHD", 3840, 2160},   {"4K", 4096, 2160}};
constexpr int kLargestSide = 32768;  // pixels

std::string unusable(std::string_view value, const std::string& wanted) {
  return "'" + report::printable(value) + "' cannot be used; give " + wanted;
}

template <class T>
std::optional<T> wholeText(std::string_view text) {
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return value;
}

}  // namespace

std::string checkSpeed(const std::string& value) {
  const bool known = std::ranges::any_of(kSpeeds, [&](Speed s) { return s.name == value; });
  return known ? "" : unusable(value, "fast, default or slow");
}

std::string checkTolerance(const std::string& value) {
  const std::optional<double> number = numberOf(value);
  return number && *number > 0 && *number < 1 ? "" : unusable(value, "a number between 0 and 1");
}

std::string checkMode(const std::string& value) {
  return wholeText<int>(value) ? "" : unusable(value, "a whole number");
}

std::string checkFrameRate(const std::string& value) {
  return frameRate(value) ? "" : unusable(value, "auto or one of " + frameRates());
}

std::string checkFrameSize(const std::string& value) {
  return frameSize(value) ? "" : unusable(value, "auto, 1080p or width x height in pixels");
}

std::string checkFormats(const std::string& value) {
  const std::vector<std::string> words = wordsOf(value);
  if (timeline::checkFormats(words).ok()) return {};
  return unusable(value, "some of " + formatNames() + ", parted by commas");
}

std::string checkXmemlForm(const std::string& value) {
  return value == "compact" || value == "complete" ? "" : unusable(value, "compact or complete");
}

std::string checkDrift(const std::string& value) {
  const bool known = value == "off" || value == "sound" || value == "pieces";
  return known ? "" : unusable(value, "off, sound or pieces");
}

std::string checkFolder(const std::string& value) {
  std::error_code ignored;  // what cannot be asked about cannot be used either
  const bool there =
      report::kindOf(report::fromUtf8(value), ignored) == std::filesystem::file_type::directory;
  return there ? "" : unusable(value, "a folder that exists");
}

std::string checkJsonFile(const std::string& value) {
  const std::filesystem::path folder = report::fromUtf8(value).parent_path();
  const bool usable = value == "-" || folder.empty() || checkFolder(report::toUtf8(folder)).empty();
  return usable ? "" : unusable(value, "a file in a folder that exists");
}

std::string checkProjectFile(const std::string& value) {
  return project::isProjectPath(value) ? "" : unusable(value, "a name that ends in .kestrel");
}

std::string frameRates() {
  std::string text;
  for (const double rate : run::kFrameRates)
    text += (text.empty() ? "" : " ") + report::shortestText(rate);
  return text;
}

std::string formatNames() {
  std::string text;
  for (const std::string_view name : timeline::formatNames())
    text += (text.empty() ? "" : ",") + std::string(name);
  return text;
}

double toleranceOf(const std::string& speed) {
  return std::ranges::find_if(kSpeeds, [&](Speed s) { return s.name == speed; })->tolerance;
}

std::optional<double> frameRate(const std::string& text) {
  if (text == "auto") return kAutomatic;
  const std::size_t slash = text.find('/');
  const auto rate = numberOf(text.substr(0, slash));
  const auto parts = slash == text.npos ? 1 : numberOf(text.substr(slash + 1));
  if (!rate || !parts || *parts <= 0) return {};
  const double wanted = *rate / *parts;
  for (const double usual : run::kFrameRates)
    if (std::abs(usual - wanted) < 5e-3) return usual;
  return {};
}

std::optional<std::pair<int, int>> frameSize(const std::string& text) {
  for (const auto& [name, width, height] : kSizes)
    if (text == name) return std::pair(width, height);
  const std::size_t cross = text.find_first_of("xX");
  if (cross == std::string::npos) return {};
  const auto width = wholeText<int>(std::string_view(text).substr(0, cross));
  const auto height = wholeText<int>(std::string_view(text).substr(cross + 1));
  const auto usable = [](std::optional<int> side) {
    return side && *side > 0 && *side <= kLargestSide;
  };
  if (!usable(width) || !usable(height)) return {};
  return std::pair(*width, *height);
}

std::vector<std::string> wordsOf(const std::string& list) {
  std::vector<std::string> words;
  for (const auto word : std::views::split(list, ',')) words.emplace_back(word.begin(), word.end());
  return words;
}

std::optional<double> numberOf(const std::string& text) { return wholeText<double>(text); }

}  // namespace cli
