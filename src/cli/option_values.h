#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace cli {

// Checks of the values of options, for the option parser: empty where the value can be used,
// otherwise what is wrong with it and what to give instead.
std::string checkSpeed(const std::string& value);
std::string checkTolerance(const std::string& value);
std::string checkMode(const std::string& value);
std::string checkFrameRate(const std::string& value);
std::string checkFrameSize(const std::string& value);
std::string checkFormats(const std::string& value);
std::string checkXmemlForm(const std::string& value);
std::string checkDrift(const std::string& value);
std::string checkFolder(const std::string& value);
std::string checkJsonFile(const std::string& value);
std::string checkProjectFile(const std::string& value);

/// The frame rates to choose from, as they are written, and the names of the documents.
std::string frameRates();
std::string formatNames();

/// The tolerance that stands for a speed that passed its check.
double toleranceOf(const std::string& speed);

/// What stands for a rate that follows the pictures.
inline constexpr double kAutomatic = 0;

/// The rate that is meant by "29.97", "30000/1001", "23.98" or "auto"; none where `text` is no rate
/// of sequences.
std::optional<double> frameRate(const std::string& text);

/// Width and height of "1920x1080" or "1080p", 0 and 0 of "auto"; none where `text` is anything
/// else.
std::optional<std::pair<int, int>> frameSize(const std::string& text);

/// The words of a list such as "fcp7,vegas".
std::vector<std::string> wordsOf(const std::string& list);

/// A whole text as a number with "." before its decimals, whatever the locale.
std::optional<double> numberOf(const std::string& text);

}  // namespace cli
