#include "Cover.h"
#include "RunSeed.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <QRect>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

constexpr int Height = 40;

/// The literal one: a flag a pixel.
class FlaggedPixels {
 public:
  explicit FlaggedPixels(int width) : Width(width), Covered(static_cast<std::size_t>(width * Height)) {}

  bool Hides(PixelRows pixels, int x, int y) const {
    bool hidden = true;
    ForEach(pixels, x, y, [&](int column, int row) { hidden = hidden && IsCovered(column, row); });
    return hidden;
  }

  bool Hides(const QRect& area) const {
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (!IsCovered(x, y)) return false;
      }
    }
    return true;
  }

  void Add(PixelRows pixels, int x, int y) {
    ForEach(pixels, x, y, [&](int column, int row) {
      if (IsOnPicture(column, row)) Covered[static_cast<std::size_t>(row * Width + column)] = true;
    });
  }

 private:
  bool IsOnPicture(int x, int y) const { return x >= 0 && x < Width && y >= 0 && y < Height; }

  bool IsCovered(int x, int y) const { return !IsOnPicture(x, y) || Covered[static_cast<std::size_t>(y * Width + x)]; }

  static void ForEach(PixelRows pixels, int x, int y, const auto& visit) {
    for (std::size_t row = 0; row < pixels.size(); ++row) {
      for (int bit = 0; bit < Cover::RowLength; ++bit) {
        if ((pixels[row] >> bit & 1) != 0) visit(x + bit, y + static_cast<int>(row));
      }
    }
  }

  int Width;
  std::vector<bool> Covered;
};

/// A picture of this width.
class CoverTest : public testing::TestWithParam<int> {
 protected:
  CoverTest() { cover.Reset(Width, Height); }

  int Between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

  /// A few rows, full ones or with gaps.
  std::vector<std::uint64_t> SomePixels() {
    std::vector<std::uint64_t> rows(static_cast<std::size_t>(Between(1, 20)));
    const std::uint64_t mask = ~std::uint64_t{0} >> Between(0, 63);
    const bool full = Between(0, 3) != 0;
    for (std::uint64_t& row : rows) row = full ? mask : mask & random();
    return rows;
  }

  const int Width = GetParam();
  const unsigned seed = RunSeed();
  testing::ScopedTrace trace{__FILE__, __LINE__, "seed " + std::to_string(seed)};
  std::mt19937_64 random{seed};
  Cover cover;
};

TEST_P(CoverTest, HidesNothingAtFirstButWhatLiesBesideThePicture) {
  const std::vector<std::uint64_t> pixel{1};
  EXPECT_FALSE(cover.Hides(pixel, 0, 0));
  EXPECT_FALSE(cover.Hides(pixel, Width - 1, Height - 1));
  EXPECT_FALSE(cover.Hides(QRect(-5, -5, Width + 10, Height + 10)));
  EXPECT_TRUE(cover.Hides(pixel, -1, 0));
  EXPECT_TRUE(cover.Hides(pixel, Width, 0));
  EXPECT_TRUE(cover.Hides(pixel, 0, -1));
  EXPECT_TRUE(cover.Hides(pixel, 0, Height));
  EXPECT_TRUE(cover.Hides(QRect(-1000, 3, 900, 5)));
  EXPECT_TRUE(cover.Hides(QRect(Width, 3, 900, 5)));
  EXPECT_TRUE(cover.Hides(QRect(3, Height, 5, 900)));
}

TEST_P(CoverTest, HidesThePixelsThatWereAddedAndNoOther) {
  FlaggedPixels flags(Width);
  int hidden = 0;
  for (int i = 0; i < 1000; ++i) {
    const std::vector<std::uint64_t> pixels = SomePixels();
    const int x = Between(-100, Width + 20);
    const int y = Between(-30, Height + 10);
    ASSERT_EQ(cover.Hides(pixels, x, y), flags.Hides(pixels, x, y)) << i;
    const QRect area(Between(-20, Width), Between(-20, Height), Between(1, i % 9 == 0 ? 200 : 12), Between(1, 30));
    ASSERT_EQ(cover.Hides(area), flags.Hides(area)) << i;
    if (flags.Hides(area)) ++hidden;
    if (i % 10 != 0) continue;
    cover.Add(pixels, x, y);
    flags.Add(pixels, x, y);
  }
  EXPECT_GT(hidden, 10);
}

TEST_P(CoverTest, ForgetsWhatWasAddedBeforeItIsReset) {
  const std::vector<std::uint64_t> rows(30, ~std::uint64_t{0});
  cover.Add(rows, 0, 5);
  ASSERT_TRUE(cover.Hides(rows, 0, 5));
  cover.Reset(Width, Height);
  EXPECT_FALSE(cover.Hides(rows, 0, 5));
}

INSTANTIATE_TEST_SUITE_P(Widths, CoverTest, testing::Values(1, 7, 63, 64, 65, 128, 150));

} // namespace
} // namespace strutwright
