// Names of files, devices and streams are any bytes. Every document has to stay what it is: XML
// well-formed, JSON readable, lists with as many lines as with other names.
#include "export/documents.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include "fuzz/input.h"
#include "tests/export/sample.h"

namespace {

timeline::Documents documentsOf(std::string_view name, std::string_view format) {
  timeline::Project project = sample::run(25, 1280, 720);
  project.media[0].path = "/" + std::string(name);
  project.media[3].path = std::string(name);
  project.media[0].deviceName = name;
  project.groups[0].name = name;
  report::NoConsole console;
  return timeline::documents(project, {"1:2:3", {std::string(format)}}, console);
}

void check(const timeline::Document& document, const timeline::Document& plain) {
  const std::string& text = document.text;
  if (text.starts_with("<?xml")) {
    pugi::xml_document xml;
    const auto parsed = xml.load_buffer(text.data(), text.size(), pugi::parse_full);
    fuzz::require(parsed.status == pugi::status_ok, document.name.c_str());
  } else if (text.starts_with("{")) {
    fuzz::require(nlohmann::json::accept(text), document.name.c_str());
  } else {
    fuzz::require(std::ranges::count(text, '\n') == std::ranges::count(plain.text, '\n'),
                  document.name.c_str());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view format = timeline::formatNames()[data[0] % timeline::formatNames().size()];
  const std::string name = std::string(fuzz::textOf(data + 1, size - 1)) + ".mov";
  const timeline::Documents plain = documentsOf("a.mov", format);
  const timeline::Documents written = documentsOf(name, format);
  fuzz::require(written.error.empty(), "documents are written");
  fuzz::require(written.files.size() == plain.files.size(), "as many as with other names");
  for (std::size_t i = 0; i < written.files.size(); ++i) check(written.files[i], plain.files[i]);
  return 0;
}
