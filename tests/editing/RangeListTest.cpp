#include "EditingState.h"
#include "EventsTest.h"
#include "Repeated.h"
#include "RunSeed.h"
#include "modRangeList.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;

using List = std::vector<std::int16_t>;

/// A list of these entries, with the unused position in front.
List Entries(const List& entries) {
  List list{0};
  list.insert(list.end(), entries.begin(), entries.end());
  return list;
}

class RangeListTest : public EventsTest {
 protected:
  RangeListTest() { TheEditing = EditingState{}; }

  void ExpectInputError() {
    EXPECT_THAT(TakeMessages(),
                ElementsAre(Box(MessageIcon::Information, "Text input error: the format is 1,2,4-7,59")));
    EXPECT_TRUE(rangeError);
  }
};

TEST_F(RangeListTest, IsEmptyAtStart) {
  EXPECT_EQ(rangeList, Entries({}));
  EXPECT_FALSE(rangeError);
}

struct ListCase {
  std::string text;
  List expected;
};

class GoodListTest : public RangeListTest, public testing::WithParamInterface<ListCase> {};

TEST_P(GoodListTest, GivesItsNumbersInOrder) {
  rangeError = true;
  parseRangeList(GetParam().text);
  EXPECT_EQ(rangeList, Entries(GetParam().expected));
  EXPECT_FALSE(rangeError);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, GoodListTest,
    testing::Values(ListCase{"7", {7}}, ListCase{"3, 1", {1, 3}}, ListCase{"4-7", {4, 5, 6, 7, 7}},
                    ListCase{"1,2,4-7,59", {1, 2, 4, 5, 6, 7, 7, 59}}, ListCase{"7-4", {4}}, ListCase{"5,5", {5, 5}},
                    ListCase{"1-3-5", {3, 4, 5, 5}}, ListCase{"2.5", {2}}, ListCase{"3.5", {4}}, ListCase{"+3", {3}},
                    ListCase{"0", {0}}, ListCase{"4-4", {4, 4}}, ListCase{" 8 - 9 ", {8, 9, 9}},
                    ListCase{"6-7,1-2", {1, 2, 2, 6, 7, 7}}, ListCase{"1-3,2-4", {1, 2, 2, 3, 3, 3, 4, 4}},
                    ListCase{"1.5-3.5", {2, 3, 4, 4}}, ListCase{"1e2", {100}},
                    // Only the range that a comma closes has its end; the one before keeps the end 0.
                    ListCase{"0-3-5", {0, 3, 4, 5, 5}}, ListCase{"32767", {32767}},
                    ListCase{"32766-32767", {32766, 32767, 32767}}));

class BadListTest : public RangeListTest, public testing::WithParamInterface<const char*> {};

TEST_P(BadListTest, IsToldAndLeavesTheListOfBefore) {
  parseRangeList("4-5");
  parseRangeList(GetParam());
  ExpectInputError();
  EXPECT_EQ(rangeList, Entries({4, 5, 5}));
}

INSTANTIATE_TEST_SUITE_P(Texts, BadListTest,
                         testing::Values("", " ", ",", "1,,2", "1,2,", "-5", "5-", "5--7", "x", "1,x", "1-x", "1 2",
                                         "1;2", "1-40000", "32768", "40000-1", "1..2", "\xC3\xA9", "1\n2"));

TEST_F(RangeListTest, ClearsTheErrorWithTheNextParse) {
  parseRangeList("x");
  ExpectInputError();
  parseRangeList("2");
  EXPECT_FALSE(rangeError);
}

TEST_F(RangeListTest, StartsAfreshWithEveryParse) {
  parseRangeList("1-3");
  parseRangeList("9");
  EXPECT_EQ(rangeList, Entries({9}));
}

TEST_F(RangeListTest, TakesAsManyNumbersAsSixteenBitsCount) {
  parseRangeList(Repeated("1,", 32766) + "1");
  EXPECT_EQ(rangeList.size(), 1U + 32767U);
  parseRangeList(Repeated("1,", 32767) + "1");
  ExpectInputError();
}

TEST_F(RangeListTest, TakesAsManyRangesAsSixteenBitsCount) {
  parseRangeList(Repeated("9-", 32767) + "9");
  EXPECT_EQ(rangeList, Entries({9, 9}));
  parseRangeList(Repeated("9-", 32768) + "9");
  ExpectInputError();
}

TEST_F(RangeListTest, HoldsMoreEntriesThanSixteenBitsCount) {
  parseRangeList("1-32767");
  EXPECT_EQ(rangeList.size(), 1U + 32768U);
  EXPECT_EQ(rangeList.back(), 32767);
}

/// Comparing each of these entries with each other one would take longer than anyone waits.
TEST_F(RangeListTest, SortsManyLongRanges) {
  parseRangeList(Repeated("1-32767,", 99) + "1-32767");
  ASSERT_EQ(rangeList.size(), 1U + 100U * 32768U);
  EXPECT_TRUE(std::is_sorted(rangeList.begin(), rangeList.end()));
  EXPECT_THAT(List(rangeList.begin() + 1, rangeList.begin() + 101), Each(1));
  EXPECT_THAT(List(rangeList.end() - 200, rangeList.end()), Each(32767));
}

TEST(SortListTest, SortsTheEntriesUpToTheCount) {
  List list{99, 5, -3, 5, 1, 0};
  sortList(list, 4);
  EXPECT_THAT(list, ElementsAre(99, -3, 1, 5, 5, 0));
}

TEST(SortListTest, LeavesAListWithoutEntriesAlone) {
  List list{7};
  sortList(list, 0);
  EXPECT_THAT(list, ElementsAre(7));
}

TEST(SortListTest, SortsTheWholeRangeOfSixteenBits) {
  List list{0, 32767, -32768, 0, 32767, -1};
  sortList(list, 5);
  EXPECT_THAT(list, ElementsAre(0, -32768, -1, 0, 32767, 32767));
}

TEST(SortListTest, AgreesWithTheLibraryOnAnyList) {
  const unsigned seed = RunSeed();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  List list{0};
  for (int entry = 0; entry < 2000; ++entry) list.push_back(static_cast<std::int16_t>(random()));
  List expected = list;
  std::sort(expected.begin() + 1, expected.end());
  sortList(list, 2000);
  EXPECT_EQ(list, expected);
}

TEST(SortListTest, RefusesACountBeyondTheList) {
  List list{0, 2, 1};
  EXPECT_ANY_THROW(sortList(list, 3));
}

TEST_F(RangeListTest, NamesItsLargestEntry) {
  parseRangeList("1,2,4-7,59");
  EXPECT_EQ(maxOfList(rangeList), 59);
}

TEST(MaxOfListTest, LooksAtTheEntriesAndNotBeforeThem) {
  EXPECT_EQ(maxOfList({9, 3, 4, 2}), 4);
  EXPECT_EQ(maxOfList({9, 3}), 3);
  EXPECT_EQ(maxOfList({0, -5, -7}), -5);
  EXPECT_ANY_THROW(maxOfList({9}));
}

} // namespace
} // namespace strutwright
