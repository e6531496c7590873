#include "cli/command_line.h"

#include <gtest/gtest.h>

using Strings = std::vector<std::string>;

TEST(CommandLine, AFolderMayEndInABackSlashBeforeTheQuote) {
  EXPECT_EQ(
      cli::windowsWords(R"("C:\my programs\k.exe" "D:\my card\" --json  r.json "b ü.MP4" "" /?)"),
      (Strings{R"(C:\my programs\k.exe)", R"(D:\my card\)", "--json", "r.json", "b ü.MP4", "",
               "--help"}));
  EXPECT_EQ(cli::windowsWords("k\t--output=\"a b.kestrel\" "),
            (Strings{"k", "--output=a b.kestrel"}));
}
