#include "cli/arguments.h"

#include <gtest/gtest.h>

#include "run/settings.h"

namespace {

using Strings = std::vector<std::string>;

cli::Arguments accepted(const Strings& words) {
  const cli::Parsed parsed = cli::parseArguments(words);
  EXPECT_TRUE(parsed.arguments) << parsed.text;
  return parsed.arguments.value_or(cli::Arguments{});
}

TEST(Arguments, DevicesAreApartAndEndAtTheNextOption) {
  const cli::Arguments given = accepted({"--device", "a1", "a 2", "--device", "[b]", "--list", "l",
                                         "c", "--device", "d", "--", "-e", "[2024] f"});
  EXPECT_EQ(given.devices, (std::vector<Strings>{{"a1", "a 2"}, {"./[b]"}, {"d"}}));
  EXPECT_EQ(given.lists, Strings{"l"});
  EXPECT_EQ(given.entries, (Strings{"c", "./-e", "./[2024] f"}));
}

TEST(Arguments, SettingsTakeTheirValues) {
  const cli::Arguments given =
      accepted({"a", "--speed", "slow", "--fps", "29.97", "--size", "1280X720", "--mode", "0",
                "--formats", "fcpx,vegas", "--xmeml-form", "compact", "--no-align"});
  EXPECT_EQ(given.tolerance, run::kSlowTolerance);
  EXPECT_EQ(given.framesPerSecond, 29.97);
  EXPECT_EQ(given.frameSize, (project::FrameSize{1280, 720}));
  EXPECT_EQ(accepted({"a", "--fps", "30000/1001"}).framesPerSecond, 29.97);
  EXPECT_EQ(accepted({"a", "--fps", "23.98"}).framesPerSecond, 23.976);
  EXPECT_EQ(accepted({"a", "--size", "1080p"}).frameSize, (project::FrameSize{1920, 1080}));
  project::Settings chosen;
  chosen.framesPerSecond = 24;
  chosen.frameSize = {640, 480};
  EXPECT_EQ(cli::settingsOf(accepted({"a"}), chosen), chosen);
  chosen = cli::settingsOf(accepted({"a", "--fps", "auto", "--size", "auto"}), chosen);
  EXPECT_FALSE(chosen.framesPerSecond.has_value());
  EXPECT_FALSE(chosen.frameSize.has_value());
  EXPECT_EQ(given.mode, 0);
  EXPECT_EQ(given.formats, (Strings{"fcpx", "vegas"}));
  EXPECT_EQ(given.compactXmeml, true);
  EXPECT_TRUE(given.votesOnly);
  EXPECT_EQ(accepted({"a", "--tolerance", "0.97"}).tolerance, 0.97);
}

TEST(Arguments, WrongUsageNamesTheOptionAndTheRemedy) {
  struct Case {
    Strings words;
    const char *option, *remedy;
  };
  const Case cases[] = {{{}, "recording", "folder"},
                        {{"a", "--fps", "26"}, "--fps", "23.976 24 25"},
                        {{"a", "--size", "1920"}, "--size", "1080p"},
                        {{"a", "--size", "0x99999"}, "--size", "1080p"},
                        {{"a", "--speed", "quick"}, "--speed", "fast, default or slow"},
                        {{"a", "--tolerance", "1"}, "--tolerance", "between 0 and 1"},
                        {{"a", "--tolerance", "0,9"}, "--tolerance", "between 0 and 1"},
                        {{"a", "--mode", "x"}, "--mode", "whole number"},
                        {{"a", "--formats", "fcp,avid"}, "--formats", "fcp,premiere,fcpx"},
                        {{"a", "-o", "wedding"}, "--output", "ends in .kestrel"},
                        {{"--device", "a", "b"}, "one device", "put -- before the others"},
                        {{"export"}, "project", ".kestrel"},
                        {{"show", "a.kestrel", "b.kestrel"}, "one project", ".kestrel"},
                        {{"show", "a.kestrel", "--formats", "otio"}, "--formats", "--help"},
                        {{"a", "--devices-in", "/no/such"}, "--devices-in", "folder that exists"},
                        {{"a", "--json", "/no/such/x.json"}, "--json", "folder that exists"},
                        {{"--device", "--fps", "25"}, "--device", "needs files"},
                        {{"a", "--sped", "fast"}, "--sped", "mean --speed?"},
                        {{"a", "--replace"}, "--replace", "mean --replace-audio?"},
                        {{"a", "--bananas"}, "--bananas", "--help"},
                        {{"a", "--to=x"}, "--to", "kestrel-align export"},
                        {{"a", "--json"}, "--json", "FILE"},
                        {{"--list"}, "--list", "one a line"},
                        {{"a", "--size", "1080p", "--size", "4K"}, "--size", "give it once"},
                        {{"a", "--quiet=often"}, "--quiet", "takes no value"},
                        {{"a", "--speed", "fast", "--tolerance", "0.9"}, "--speed", "only one"}};
  for (const Case& c : cases) {
    const cli::Parsed parsed = cli::parseArguments(c.words);
    EXPECT_FALSE(parsed.arguments);
    EXPECT_EQ(parsed.exitStatus, 2);
    EXPECT_NE(parsed.text.find(c.option), std::string::npos) << parsed.text;
    EXPECT_NE(parsed.text.find(c.remedy), std::string::npos) << parsed.text;
  }
}

TEST(Arguments, TheFirstWordMayBeACommand) {
  EXPECT_EQ(accepted({"sync", "a"}).entries, Strings{"a"});
  EXPECT_EQ(accepted({"./sync"}).entries, Strings{"./sync"});
  EXPECT_EQ(accepted({"a", "export"}).entries, (Strings{"a", "export"}));
  const cli::Arguments given =
      accepted({"export", "w.kestrel", "--formats", "otio", "--by-clock", "--to", "x"});
  EXPECT_EQ(given.command, cli::Command::exportDocuments);
  EXPECT_EQ(given.folder, "x");
  project::Settings settings;
  settings.framesPerSecond = 50;
  settings.mode = 0;
  settings = cli::settingsOf(given, settings);
  EXPECT_EQ(settings.framesPerSecond, 50) << "what is not given stays as the project has it";
  EXPECT_EQ(settings.mode, 0);
  EXPECT_EQ(settings.formats, Strings{"otio"});
  EXPECT_TRUE(settings.clipsByClock);
}

TEST(Arguments, HelpHasAnExampleAndFitsATerminal) {
  const cli::Parsed parsed = cli::parseArguments({"--help"});
  EXPECT_EQ(parsed.exitStatus, 0);
  EXPECT_EQ(parsed.text.find('{'), std::string::npos) << "a detail of the option parser";
  EXPECT_NE(parsed.text.find("kestrel-align --device"), std::string::npos);
  for (std::size_t i = 0, end; (end = parsed.text.find('\n', i)) != std::string::npos; i = end + 1)
    EXPECT_LE(end - i, 100u) << parsed.text.substr(i, end - i);
  EXPECT_EQ(cli::parseArguments({"--version"}).text, "Kestrel Aligner 1.53rc\n");
}

}  // namespace
