// What the documents of a run cost, without storing them: 60 and 998 clips of eight devices in one
// group, each format by itself and the usual ones together.
#include <benchmark/benchmark.h>

#include "export/documents.h"
#include "report/console.h"
#include "tests/export/sample.h"

namespace {

timeline::Project projectOf(int clips) {
  constexpr int kDevices = 8;
  timeline::Project project;
  project.fps = 29.97;
  project.groups = {{"Group 1", {}}};
  for (int i = 0; i < clips; ++i) {
    const int device = i % kDevices;
    const std::string path = "/shoot/device " + std::to_string(device) + "/" + std::to_string(i);
    project.media.push_back(
        device < 2 ? sample::recorder(path + ".wav", 299.5, 2, 48000, device)
                   : sample::camera(path + ".mov", 299.5, 29.97, 1920, 1080, 2, device));
    project.groups[0].clips.push_back({i, 300.0 * (i / kDevices) + 0.37 * device, 0.95});
  }
  std::ranges::stable_sort(project.groups[0].clips, {}, &timeline::Clip::startSeconds);
  return project;
}

void documents(benchmark::State& state, const std::vector<std::string>& formats) {
  const timeline::Project project = projectOf(static_cast<int>(state.range(0)));
  report::NoConsole console;
  std::size_t bytes = 0;
  for (auto _ : state) {
    const timeline::Documents made = timeline::documents(project, {"12:00:00", formats}, console);
    bytes = 0;
    for (const timeline::Document& document : made.files) bytes += document.text.size();
  }
  state.counters["KiB"] = double(bytes) / 1024;
}

}  // namespace

int main(int count, char** words) {
  const auto add = [](const std::string& name, const std::vector<std::string>& formats) {
    benchmark::RegisterBenchmark(name.c_str(), documents, formats)
        ->Arg(60)
        ->Arg(998)
        ->Unit(benchmark::kMillisecond);
  };
  add("usual", {});
  for (const std::string_view format : timeline::formatNames())
    add(std::string(format), {std::string(format)});
  benchmark::Initialize(&count, words);
  benchmark::RunSpecifiedBenchmarks();
}
