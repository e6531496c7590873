#include <cstdio>
#include <exception>

#include "cli/align.h"
#include "cli/terminal.h"
#include "run/safe_start.h"

int main(int argc, char** argv) {
  run::startSafely();
  cli::useUtf8Output();
  try {
    const cli::Parsed parsed = cli::parseArguments(cli::utf8Arguments(argc, argv));
    if (parsed.arguments) return cli::align(*parsed.arguments);
    std::fputs(parsed.text.c_str(), parsed.exitStatus == 0 ? stdout : stderr);
    return parsed.exitStatus;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrel-align: the run failed: %s\n", error.what());
    return cli::kFailed;
  }
}
