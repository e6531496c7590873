#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "cli/demo/render.h"
#include "cli/demo/truth.h"
#include "report/files.h"
#include "report/text.h"
#include "run/process.h"

namespace {

constexpr char kHelp[] =
    "Usage: kestrel-demo render FOLDER\n"
    "         writes recordings of a made-up performance and truth.json, where they belong\n"
    "       kestrel-demo compare TRUTH.json RESULT.json\n"
    "         compares a result of kestrel-align with the truth\n";
constexpr double kToleratedSeconds = 0.060;

int fail(const std::string& error) {
  std::cerr << "kestrel-demo: " << error << "\n";
  return 1;
}

int render(const std::string& folder) {
  const std::filesystem::path path = report::fromUtf8(folder);
  const cli::demo::Scene scene = cli::demo::demoScene();
  run::SystemProcesses processes;
  report::Status status = cli::demo::renderScene(scene, path, processes);
  if (status.ok()) status = report::writeWhole(path / "truth.json", cli::demo::truthJson(scene));
  return status.ok() ? 0 : fail(status.error);
}

std::string contentOf(const std::string& name) {
  std::ifstream file(report::fromUtf8(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

int compare(const std::string& truth, const std::string& result) {
  const cli::demo::Comparison c = cli::demo::compare(contentOf(truth), contentOf(result));
  std::cout << c.text << "\n"
            << c.placed << " of " << c.all << " recordings are placed, at most "
            << report::decimalText(c.largestErrorSeconds * 1000, 1) << " ms from the truth.\n";
  return c.placed == c.all && c.largestErrorSeconds <= kToleratedSeconds ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  try {
    if (words.size() == 2 && words[0] == "render") return render(words[1]);
    if (words.size() == 3 && words[0] == "compare") return compare(words[1], words[2]);
  } catch (const std::exception& error) {
    return fail(error.what());
  }
  std::cerr << kHelp;
  return 2;
}
