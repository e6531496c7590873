#include "report/status.h"

#include <gtest/gtest.h>

TEST(Status, AnErrorTextMeansFailure) {
  EXPECT_TRUE(report::Status{}.ok());
  EXPECT_FALSE(report::Status{"cannot open a.wav"}.ok());
}
