#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "report/files.h"
#include "report/profile.h"
#include "tests/awkward_names.h"
#include "tests/fresh_path.h"

/// A profile folder of its own for each test, with the folders that a run makes.
class ProfileTest : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    profile_ = freshPath("kestrel " + std::string(kAwkwardName) + test->name());
    std::filesystem::create_directories(profile_ / "Desktop/SYNCED/debugfiles");
    report::useProfileFolder(report::toUtf8(profile_));
  }
  void TearDown() override { std::filesystem::remove_all(profile_); }

  std::string content(const char* belowProfile, std::ios::openmode mode = std::ios::in) const {
    std::ifstream file(report::fromUtf8(report::toUtf8(profile_) + belowProfile), mode);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path profile_;
};
