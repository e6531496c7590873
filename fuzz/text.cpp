// Names of files are any bytes. Every form in which they are written has to stay what it is: XML
// well-formed, JSON readable, one line one line, URLs the same bytes again.
#include "export/text.h"

#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include "export/url.h"
#include "fuzz/input.h"
#include "report/text.h"
#include "report/utf8.h"

namespace {

std::string unescapedUrl(std::string_view url) {
  std::string path;
  for (std::size_t i = 0; i < url.size(); ++i) {
    if (url[i] != '%') {
      path += url[i];
      continue;
    }
    path += static_cast<char>(std::stoi(std::string(url.substr(i + 1, 2)), nullptr, 16));
    i += 2;
  }
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view name = fuzz::textOf(data, size);
  const std::string clean = timeline::cleanText(name);
  pugi::xml_document document;
  const std::string xml =
      "<a b=\"" + timeline::escaped(name) + "\">" + timeline::escaped(name) + "</a>";
  fuzz::require(
      document.load_buffer(xml.data(), xml.size(), pugi::parse_full).status == pugi::status_ok,
      "XML is well-formed");
  fuzz::require(nlohmann::json(clean).dump().size() >= clean.size() + 2, "clean text is UTF-8");
  for (const std::string& line : {timeline::oneLine(name), report::printable(name)})
    fuzz::require(line.find_first_of("\r\n") == std::string::npos, "one line stays one");
  for (const report::Character& character : report::characters(report::printable(name)))
    fuzz::require(character.valid, "what is shown is UTF-8");
  const std::string path = "/" + std::string(name);
  constexpr std::string_view kBefore = "file://";
  const std::string url = timeline::fileUrl(path, timeline::UrlStyle::standard);
  if (!timeline::isWindowsPath(path))
    fuzz::require(unescapedUrl(url).substr(kBefore.size()) == path, "a URL names the file");
  (void)report::elidedMiddle(report::printable(name), 20);
  return 0;
}
