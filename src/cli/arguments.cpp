#include "cli/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/option_values.h"

namespace cli {
namespace {

constexpr char kPurpose[] =
    "Finds where the recordings of one event belong on a common timeline, by listening to\n"
    "them, and writes timeline documents for video editors.\n";
constexpr char kClosing[] =
    "A folder stands for the media files in it and in the folders below it; hidden ones are\n"
    "passed over. The documents are written to Desktop/SYNCED in your own folder.\n\n"
    "Examples:\n"
    "  kestrel-align wedding/\n"
    "      everything in the folder, each file by itself\n"
    "  kestrel-align --device camA/*.MP4 --device camB/*.MOV -- recorder.wav\n"
    "      two cameras with several clips each, and a sound recorder\n\n"
    "Exit status: 0 something was synchronised, 3 nothing matched, 2 wrong usage,\n"
    "1 anything else, such as that no file could be read, 130 interrupted.";

/// The words, last first as the parser takes them, names shielded from it by "./": a leading
/// bracket would be read as a list of values, but folders are called "[2024] wedding"; and behind
/// "--" a leading dash belongs to a name.
std::vector<std::string> forParser(const std::vector<std::string>& words) {
  std::vector<std::string> result;
  bool namesOnly = false;
  for (const std::string& word : words) {
    const bool shield = word.starts_with('[') || (namesOnly && word.starts_with('-'));
    result.push_back(shield ? "./" + word : word);
    namesOnly |= word == "--";
  }
  std::ranges::reverse(result);
  return result;
}

/// The options, bound to what they fill. Values with a form of their own are read as words first.
class Reader {
 public:
  Reader();
  Parsed read(const std::vector<std::string>& words);

 private:
  void addFiles();
  void addSettings();
  void addDocuments();
  void addOutput();
  void takeOverWords();

  CLI::App app_{kPurpose, "kestrel-align"};
  Arguments given_;
  std::string speed_, tolerance_, rate_, size_, formats_, form_;
};

Reader::Reader() {
  addFiles();
  addSettings();
  addDocuments();
  addOutput();
  app_.set_version_flag("--version", "Kestrel Aligner 1.53rc", "Print the version and end");
  app_.set_help_flag("-h,--help", "Print this help and end");
  app_.footer(kClosing);
  app_.get_formatter()->column_width(24);
}

void Reader::addFiles() {
  app_.add_option("ENTRY", given_.entries, "Media files and folders")->option_text("...");
  app_.add_option("--device", given_.devices,
                  "The files of one device, up to the next option or --; repeatable")
      ->option_text("FILE...");
  app_.add_option("--list", given_.lists, "A file that lists entries, one a line; repeatable")
      ->option_text("FILE")
      ->allow_extra_args(false);
}

void Reader::addSettings() {
  auto* speed = app_.add_option("--speed", speed_, "How closely to listen: fast, default, slow")
                    ->option_text("SPEED")
                    ->check(checkSpeed);
  app_.add_option("--tolerance", tolerance_, "The same as a number below 1; smaller is closer")
      ->option_text("X")
      ->check(checkTolerance)
      ->excludes(speed);
  app_.add_option("--mode", given_.mode, "Mode flag: 1 believes more pairs, 0 only the surest")
      ->option_text("N")
      ->check(checkMode);
  app_.add_flag("!--no-align", given_.align, "Place by the vote of the accepted pairs alone")
      ->option_text(" ");
}

void Reader::addDocuments() {
  app_.add_option("--fps", rate_, "Frame rate: auto (usual) or " + frameRates())
      ->option_text("RATE")
      ->check(checkFrameRate);
  app_.add_option("--size", size_, "Frame size: auto (usual), 1080p or such as 1920x1080")
      ->option_text("WxH")
      ->check(checkFrameSize);
  app_.add_option("--formats", formats_, "Documents to write: " + formatNames())
      ->option_text("LIST")
      ->check(checkFormats);
  app_.add_option("--xmeml-form", form_, "compact, or complete with all that editors ask for")
      ->option_text("FORM")
      ->check(checkXmemlForm);
  app_.add_option("--drift", given_.drift, "Clocks that drift: off, sound (usual) or pieces")
      ->option_text("WAY")
      ->check(checkDrift);
  app_.add_flag("--replace-audio", given_.replaceAudio, "Write each camera clip's best sound too")
      ->option_text(" ");
  app_.add_flag("--camera-sound", given_.cameraSound, "Cameras sound beside recorders too")
      ->option_text(" ");
  app_.add_option("--profile", given_.profile, "Write to Desktop/SYNCED in this folder instead")
      ->option_text("DIR")
      ->check(checkFolder);
}

void Reader::addOutput() {
  app_.add_option("--json", given_.json, "Write the result as JSON; - for standard output")
      ->option_text("FILE")
      ->check(checkJsonFile);
  app_.add_flag("--open", given_.open, "Open the results when done");
  auto* quiet = app_.add_flag("--quiet", given_.quiet, "Show the result and errors only");
  app_.add_flag("--verbose", given_.verbose, "Show the diagnostic lines of the run")
      ->option_text(" ")
      ->excludes(quiet);
  quiet->option_text(" ");
}

void Reader::takeOverWords() {
  if (!speed_.empty()) given_.tolerance = toleranceOf(speed_);
  if (!tolerance_.empty()) given_.tolerance = *numberOf(tolerance_);
  if (!rate_.empty()) given_.framesPerSecond = *frameRate(rate_);
  if (!size_.empty()) std::tie(given_.width, given_.height) = *frameSize(size_);
  if (!formats_.empty()) given_.formats = wordsOf(formats_);
  given_.compactXmeml = form_ == "compact";
}

Parsed Reader::read(const std::vector<std::string>& words) {
  try {
    app_.parse(forParser(words));
  } catch (const CLI::CallForHelp&) {
    return {{}, app_.help(), 0};
  } catch (const CLI::CallForVersion& version) {
    return {{}, version.what() + std::string("\n"), 0};
  } catch (const CLI::ExcludesError& error) {
    return usageError(error.what() + std::string("; give only one of the two"));
  } catch (const CLI::ArgumentMismatch& error) {
    return usageError(error.what() + std::string("; see what it takes in the help"));
  } catch (const CLI::ParseError& error) {
    return usageError(error.what());
  }
  takeOverWords();
  for (const std::vector<std::string>& device : given_.devices)
    if (device.front().starts_with("--"))
      return usageError("--device needs files; name them after it, before the next option");
  if (given_.entries.empty() && given_.devices.empty() && given_.lists.empty())
    return usageError("No recording is named; give media files or a folder that holds them");
  return {given_, {}, 0};
}

}  // namespace

Parsed usageError(const std::string& problem) {
  return {{}, "kestrel-align: " + problem + ".\nSee kestrel-align --help for all options.\n", 2};
}

Parsed parseArguments(const std::vector<std::string>& words) { return Reader().read(words); }

}  // namespace cli
