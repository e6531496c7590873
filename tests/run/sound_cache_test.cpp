#include "run/sound_cache.h"

#include <gtest/gtest.h>

#include "media.h"

namespace {

namespace fs = std::filesystem;

class SoundCacheTest : public testing::Test {
 protected:
  std::string cached() const { return folder_.file("cache"); }
  /// Makes a file older or newer than it is.
  static void setTime(const std::string& path, int seconds) {
    fs::last_write_time(report::fromUtf8(path),
                        fs::file_time_type::clock::now() + std::chrono::seconds(seconds));
  }
  const Folder folder_;
};

TEST_F(SoundCacheTest, AnotherTimeOrLengthIsAnotherFile) {
  const std::string file = folder_.write("a.wav", "sound");
  const run::FileKey key = run::SoundCache::keyOf(file);
  EXPECT_EQ(run::SoundCache::keyOf(file), key);
  setTime(file, -60);
  EXPECT_NE(run::SoundCache::keyOf(file), key);
  const run::FileKey older = run::SoundCache::keyOf(file);
  (void)folder_.write("a.wav", "sounds");
  setTime(file, -60);
  EXPECT_NE(run::SoundCache::keyOf(file), older);
  EXPECT_NE(run::SoundCache::keyOf(folder_.write("b.wav", "sound")), key);
  EXPECT_EQ(run::SoundCache::keyOf(folder_.file("none")), "");
}

TEST_F(SoundCacheTest, GivesBackWhatItKept) {
  const run::SoundCache cache(cached());
  const std::string sound = folder_.write("converted", "sound"), target = folder_.file("target");
  EXPECT_FALSE(cache.fetchSound("key", target));
  cache.keepSound("key", sound);
  EXPECT_FALSE(cache.fetchSound("other", target));
  ASSERT_TRUE(cache.fetchSound("key", target));
  EXPECT_EQ(readWhole(report::fromUtf8(target)), "sound");

  const analysis::Heard heard{
      analysis::PackedFingerprint(std::vector<std::uint64_t>{1, 2, ~std::uint64_t(0)}), 12};
  cache.keepHeard("key", 0.99, heard);
  EXPECT_FALSE(cache.fetchHeard("key", 0.985).has_value());
  ASSERT_TRUE(cache.fetchHeard("key", 0.99).has_value());
  EXPECT_EQ(cache.fetchHeard("key", 0.99)->fingerprint, heard.fingerprint);
  EXPECT_EQ(cache.fetchHeard("key", 0.99)->seconds, 12);
  (void)report::writeWhole(report::fromUtf8(cached() + "/key-0.99"), "damaged, damaged, damaged");
  EXPECT_FALSE(cache.fetchHeard("key", 0.99).has_value());

  cache.clear();
  EXPECT_EQ(cache.bytes(), 0u);
  EXPECT_FALSE(run::SoundCache("").fetchSound("key", target));
}

TEST_F(SoundCacheTest, DropsWhatWasNotUsedForLongest) {
  const run::SoundCache cache(cached(), 2500);
  const std::string sound = folder_.write("converted", std::string(1000, 'x'));
  for (const char* key : {"a", "b", "c"}) {
    cache.keepSound(key, sound);
    setTime(cached() + "/" + key + ".wav", -100);
  }
  ASSERT_TRUE(cache.fetchSound("a", folder_.file("target")));  // used: now the youngest
  setTime(cached() + "/b.wav", -50);
  cache.trim();
  EXPECT_EQ(cache.bytes(), 2000u);
  EXPECT_TRUE(cache.fetchSound("a", folder_.file("target")));
  EXPECT_TRUE(cache.fetchSound("b", folder_.file("target")));
  EXPECT_FALSE(cache.fetchSound("c", folder_.file("target")));
}

}  // namespace
