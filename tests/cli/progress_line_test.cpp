#include "cli/progress_line.h"

#include <gtest/gtest.h>

#include "report/text.h"

namespace {

TEST(ProgressText, FitsEveryWidthAndKeepsTheEssentials) {
  const cli::Step step{run::Stage::fingerprint, "/media/Ceremony \x1b[2J camera two 日本.MP4", 3, 4,
                       75.9};
  EXPECT_EQ(cli::progressText(step, 200),
            "3/6 Listening  75 %  0:01:15  Ceremony ?[2J camera two 日本.MP4");
  for (int columns = 0; columns < 80; ++columns)
    EXPECT_LE(report::displayWidth(cli::progressText(step, columns)), columns);
  EXPECT_EQ(cli::progressText({run::Stage::write, "", 0, 0, 0}, 80),
            "6/6 Writing documents  0 %  0:00:00");
}

TEST(ProgressLine, ShowsNothingWithoutATerminalAndWipesItselfOnOne) {
  for (const int columns : {0, 40}) {
    std::FILE* stream = std::tmpfile();
    {
      cli::ProgressLine(stream, [&] { return columns; }).stage(run::Stage::probe, "a", 1, 1);
    }
    const auto size = static_cast<std::size_t>(std::ftell(stream));
    std::string text(size, '\0');
    std::rewind(stream);
    EXPECT_EQ(std::fread(text.data(), 1, size, stream), size);
    std::fclose(stream);
    EXPECT_EQ(text.empty(), columns == 0);
    EXPECT_TRUE(text.empty() || text.ends_with("\r\x1b[K"));
  }
}

}  // namespace
