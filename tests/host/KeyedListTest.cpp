#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/KeyedList.h"

namespace zrsimprp {
namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

// Every entry as (item, key), so one comparison shows the whole list when a test fails.
Entries EntriesOf(const KeyedList& list) {
  Entries entries;
  for (int32_t i = 1; i <= list.Count(); ++i)
    entries.emplace_back(std::string(list.Item(i)), std::string(list.Key(i)));
  return entries;
}

TEST(KeyedList, EntriesCountFromOne) {
  KeyedList list;
  list.Add("12 Lines A", "12");
  list.Add("13 Lines B", "13");
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(EntriesOf(list), (Entries{{"12 Lines A", "12"}, {"13 Lines B", "13"}}));
  EXPECT_EQ(ErrorNumberOf([&] { list.Item(0); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { list.Key(3); }), 9);
}

TEST(KeyedList, OutsideTheListSaysSubscriptOutOfRange) {
  const KeyedList list;
  const auto error = RaisedError([&] { list.Item(1); });
  ASSERT_TRUE(error) << "no error for entry 1 of an empty list";
  EXPECT_EQ(error->number, 9);
  EXPECT_EQ(error->source, "KeyedList");
  EXPECT_EQ(error->description, "Subscript out of range");
}

TEST(KeyedList, EmptyItemsAndKeysKeepTheirPlace) {
  KeyedList list;
  list.Add("", "");
  list.Add("B", "");
  list.Add("", "3");
  EXPECT_EQ(EntriesOf(list), (Entries{{"", ""}, {"B", ""}, {"", "3"}}));
}

TEST(KeyedList, NumberedEntryShowsNumberBlankAndName) {
  KeyedList list;
  list.AddNumbered(21, "Half-normal", 22);
  list.AddNumbered(-4, "", 0);
  list.AddNumbered(std::numeric_limits<int32_t>::min(), "x", std::numeric_limits<int32_t>::max());
  EXPECT_EQ(EntriesOf(list),
            (Entries{{"21 Half-normal", "22"}, {"-4 ", "0"}, {"-2147483648 x", "2147483647"}}));
}

TEST(KeyedList, TextsSurviveTheListGrowing) {
  KeyedList list;
  for (int32_t i = 0; i < 5000; ++i)
    list.AddNumbered(i, "Survey with a name longer than a short string " + std::to_string(i), i * 3);
  ASSERT_EQ(list.Count(), 5000);
  for (int32_t i = 0; i < 5000; i += 499) {
    EXPECT_EQ(list.Item(i + 1),
              std::to_string(i) + " Survey with a name longer than a short string " + std::to_string(i));
    EXPECT_EQ(list.Key(i + 1), std::to_string(i * 3));
  }
}

TEST(KeyedList, LookupsTakeTheLastMatchIgnoringCase) {
  KeyedList list;
  list.Add("3 All data", "3");
  list.Add("4 Truncated", "4");
  list.Add("3 ALL DATA", "9");
  list.Add("5 Other", "4");
  EXPECT_EQ(list.LastKeyOfItem("3 all data"), "9");
  EXPECT_EQ(list.LastKeyOfItem("4 Truncated"), "4");
  EXPECT_EQ(list.LastItemOfKey("4"), "5 Other");
  EXPECT_EQ(list.LastItemOfKey("3"), "3 All data");
}

TEST(KeyedList, LookupsWithoutAMatchGiveEmptyText) {
  KeyedList list;
  EXPECT_EQ(list.LastKeyOfItem("3 All data"), "");
  EXPECT_EQ(list.LastItemOfKey("3"), "");
  list.Add("3 All data", "3");
  EXPECT_EQ(list.LastKeyOfItem("3 All dat"), "");
  EXPECT_EQ(list.LastItemOfKey("33"), "");
  EXPECT_EQ(list.LastItemOfKey(""), "");
}

TEST(KeyedList, ReservingRoomChangesNoEntry) {
  KeyedList list;
  list.Add("1 A", "1");
  list.Reserve(1000);
  list.Reserve(10);
  list.Add("2 B", "2");
  EXPECT_EQ(EntriesOf(list), (Entries{{"1 A", "1"}, {"2 B", "2"}}));
}

}  // namespace
}  // namespace zrsimprp
