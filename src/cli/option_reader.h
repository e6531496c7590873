#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/arguments.h"

namespace cli {

/// The options of one command, bound to what they fill: the one table that parsing, help, manual
/// and completion come from. Values with a form of their own are read as words first.
class OptionReader {
 public:
  explicit OptionReader(Command command);
  OptionReader(const OptionReader&) = delete;
  OptionReader& operator=(const OptionReader&) = delete;

  Parsed read(const std::vector<std::string>& words);
  std::vector<OptionText> options() const;

 private:
  void addFiles();
  void addProject();
  void addSettings();
  void addDocuments();
  void addProfile();
  void addOutput();
  void addTalk();
  void takeOverWords();
  std::string wrongNumber(const std::string& message) const;
  std::string unexpected() const;

  CLI::App app_;
  Arguments given_;
  bool byClock_ = false, noCache_ = false;
  std::string speed_, tolerance_, mode_, rate_, size_, formats_, form_;
};

}  // namespace cli
