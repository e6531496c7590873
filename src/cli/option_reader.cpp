#include "cli/option_reader.h"

#include <algorithm>

#include "cli/mistakes.h"
#include "cli/option_values.h"
#include "report/text.h"

namespace cli {
namespace {

constexpr char kPurpose[] =
    "Finds where the recordings of one event belong on a common timeline, by listening to\n"
    "them, and writes timeline documents for video editors.\n";
constexpr char kClosing[] =
    "Commands: sync (the usual one, its name may be left out), export and show; each has\n"
    "its own help: kestrel-align export --help.\n\n"
    "A folder stands for the media files in it and in the folders below it; hidden ones are\n"
    "passed over. The documents are written to Desktop/SYNCED in your own folder, and beside\n"
    "them a project (.kestrel), which can be given instead of files to go on with it.\n\n"
    "Examples:\n"
    "  kestrel-align wedding/\n"
    "      everything in the folder, each file by itself\n"
    "  kestrel-align --device camA/*.MP4 --device camB/*.MOV -- recorder.wav\n"
    "      two cameras with several clips each, and a sound recorder\n"
    "  kestrel-align sync --devices-in wedding/ -o wedding.kestrel\n"
    "      a folder for each device; the result is kept as a project\n"
    "  kestrel-align sync wedding.kestrel forgotten-card/ -o wedding.kestrel\n"
    "      a card more\n"
    "  kestrel-align export wedding.kestrel --formats fcpx,otio\n"
    "      other documents of the same result, without listening again\n\n"
    "Exit status: 0 something was synchronised, 3 nothing matched, 2 wrong usage,\n"
    "1 anything else, such as that no file could be read, 130 interrupted.";
constexpr char kExportPurpose[] =
    "Writes the documents of a project as it stands; nothing is listened to again.\n";
constexpr char kShowPurpose[] = "Shows what stands where in a project, and how surely.\n";

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

std::string purposeOf(Command command) {
  if (command == Command::exportDocuments) return kExportPurpose;
  return command == Command::show ? kShowPurpose : kPurpose;
}

std::string programOf(Command command) {
  if (command == Command::exportDocuments) return "kestrel-align export";
  return command == Command::show ? "kestrel-align show" : "kestrel-align";
}

/// "-o,--output" as people read it.
std::string namesOf(const CLI::Option& option) {
  std::string names;
  for (const std::string& name : option.get_snames()) names += (names.empty() ? "-" : ", -") + name;
  for (const std::string& name : option.get_lnames())
    names += (names.empty() ? "--" : ", --") + name;
  return names.empty() ? option.get_name(true) : names;
}

}  // namespace

OptionReader::OptionReader(Command command) : app_(purposeOf(command), programOf(command)) {
  given_.command = command;
  if (command == Command::sync) {
    addFiles();
    addSettings();
  } else {
    addProject();
  }
  if (command != Command::show) addDocuments();
  if (command == Command::sync) addProfile();
  addOutput();
  if (command != Command::show) addTalk();
  app_.set_version_flag("--version", "Kestrel Aligner 1.53rc", "Print the version and end");
  app_.set_help_flag("-h,--help", "Print this help and end");
  if (command == Command::sync) app_.footer(kClosing);
  app_.get_formatter()->column_width(24);
}

void OptionReader::addFiles() {
  app_.add_option("ENTRY", given_.entries, "Media files, folders and projects")->option_text("...");
  app_.add_option("--device", given_.devices,
                  "The files of one device, up to the next option or --; repeatable")
      ->option_text("FILE...");
  app_.add_option("--devices-in", given_.devicesIn,
                  "Makes one device of every folder in this one; repeatable")
      ->option_text("DIR")
      ->allow_extra_args(false)
      ->check(checkFolder);
  app_.add_option("--list", given_.lists, "A file that lists entries, one a line; repeatable")
      ->option_text("FILE")
      ->allow_extra_args(false);
  app_.add_option("--only", given_.only,
                  "Place only this recording of a project again, named by its file; repeatable")
      ->option_text("NAME")
      ->allow_extra_args(false);
}

void OptionReader::addProject() {
  app_.add_option("PROJECT", given_.entries, "A project: a file that ends in .kestrel")
      ->option_text("FILE");
}

void OptionReader::addSettings() {
  auto* speed = app_.add_option("--speed", speed_, "How closely to listen: fast, default, slow")
                    ->option_text("SPEED")
                    ->check(checkSpeed);
  app_.add_option("--tolerance", tolerance_, "The same as a number below 1; smaller is closer")
      ->option_text("X")
      ->check(checkTolerance)
      ->excludes(speed);
  app_.add_option("--mode", mode_, "Mode flag: 1 believes more pairs, 0 only the surest")
      ->option_text("N")
      ->check(checkMode);
  app_.add_flag("--no-align", given_.votesOnly, "Place by the vote of the accepted pairs alone")
      ->option_text(" ");
  app_.add_flag("--no-cache", noCache_, "Listen anew to what was heard before")->option_text(" ");
}

void OptionReader::addDocuments() {
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
  app_.add_flag("--by-clock", byClock_,
                "Documents also hold clips that only their device's clock places")
      ->option_text(" ");
}

void OptionReader::addProfile() {
  app_.add_option("--profile", given_.profile, "Write to Desktop/SYNCED in this folder instead")
      ->option_text("DIR");
}

void OptionReader::addOutput() {
  if (given_.command == Command::exportDocuments)
    app_.add_option("--to", given_.folder, "Write to this folder; without it beside the project")
        ->option_text("DIR");
  else if (given_.command == Command::sync)
    app_.add_option("-o,--output", given_.output, "Keep the result as a project of this name")
        ->option_text("FILE")
        ->check(checkProjectFile);
  app_.add_option("--json", given_.json, "Write the result as JSON; - for standard output")
      ->option_text("FILE")
      ->check(checkJsonFile);
}

void OptionReader::addTalk() {
  if (given_.command == Command::sync)
    app_.add_flag("--open", given_.open, "Open the results when done")->option_text(" ");
  auto* quiet = app_.add_flag("--quiet", given_.quiet, "Show the result and errors only");
  app_.add_flag("--verbose", given_.verbose, "Show the diagnostic lines of the run")
      ->option_text(" ")
      ->excludes(quiet);
  quiet->option_text(" ");
}

void OptionReader::takeOverWords() {
  if (!speed_.empty()) given_.tolerance = toleranceOf(speed_);
  if (!tolerance_.empty()) given_.tolerance = *numberOf(tolerance_);
  if (!mode_.empty()) given_.mode = static_cast<int>(*numberOf(mode_));
  if (!rate_.empty()) given_.framesPerSecond = *frameRate(rate_);
  if (const auto size = frameSize(size_)) given_.frameSize = {size->first, size->second};
  if (!formats_.empty()) given_.formats = wordsOf(formats_);
  if (!form_.empty()) given_.compactXmeml = form_ == "compact";
  if (byClock_) given_.byClock = true;
  given_.cache = !noCache_;
}

Parsed OptionReader::read(const std::vector<std::string>& words) {
  try {
    app_.parse(forParser(words));
  } catch (const CLI::CallForHelp&) {
    return {{}, app_.help(), 0};
  } catch (const CLI::CallForVersion& version) {
    return {{}, version.what() + std::string("\n"), 0};
  } catch (const CLI::ExcludesError& error) {
    return usageError(error.what() + std::string("; give only one of the two"));
  } catch (const CLI::ArgumentMismatch& error) {
    return usageError(wrongNumber(error.what()));
  } catch (const CLI::ConversionError& error) {  // all other values are read as words
    return usageError(error.what() + std::string("; it takes no value"));
  } catch (const CLI::ExtrasError&) {
    return usageError(unexpected());
  } catch (const CLI::ParseError& error) {
    return usageError(error.what());
  }
  takeOverWords();
  return {given_, {}, 0};
}

/// What was found before the parser gave up tells which option it was.
std::string OptionReader::wrongNumber(const std::string& message) const {
  for (const OptionText& option : options())
    if (option.names.ends_with(message.substr(0, message.find(':'))))
      return wrongCount(option, message.find("At Most") != std::string::npos);
  return message;
}

std::string OptionReader::unexpected() const {
  const std::vector<std::string> words = app_.remaining();
  const auto option =
      std::ranges::find_if(words, [](const std::string& word) { return word.starts_with('-'); });
  if (option != words.end()) return unknownOption(*option, given_.command);
  return "'" + report::printable(words.front()) + "' was not expected";
}

std::vector<OptionText> OptionReader::options() const {
  std::vector<OptionText> texts;
  for (const CLI::Option* option : app_.get_options()) {
    const std::string text = option->get_option_text();
    texts.push_back(
        {namesOf(*option), text == " " ? std::string() : text, option->get_description()});
  }
  return texts;
}

}  // namespace cli
