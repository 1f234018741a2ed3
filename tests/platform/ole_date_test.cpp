// Dates as the system keeps them, and as text in the user's format.
#include <gtest/gtest.h>

#include "platform/text/ole_date.h"

namespace {

fk::OleDate Date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return fk::OleDateFromParts({year, month, day, hour, minute, second}).value();
}

TEST(OleDateTest, DaysCountFromTheEndOf1899AndFoldBeforeIt) {
  EXPECT_DOUBLE_EQ(Date(1899, 12, 30), 0.0);
  EXPECT_DOUBLE_EQ(Date(1900, 1, 1), 2.0);
  EXPECT_DOUBLE_EQ(Date(2000, 1, 1, 18), 36526.75);
  EXPECT_DOUBLE_EQ(Date(1899, 12, 29, 6), -1.25) << "the fraction still counts forward";
  EXPECT_DOUBLE_EQ(fk::OleDateToLinear(-1.25), -0.75);
  EXPECT_DOUBLE_EQ(fk::OleDateToLinear(36526.75), 36526.75);

  const auto parts = fk::PartsFromOleDate(-1.25);
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->day * 100 + parts->hour, 2906);
  const auto rounded = fk::PartsFromOleDate(Date(2024, 2, 29, 23, 59, 59) + 0.6 / 86400);
  ASSERT_TRUE(rounded);
  EXPECT_EQ(rounded->month * 100 + rounded->day, 301) << "to the nearest second, over midnight";

  EXPECT_FALSE(fk::OleDateFromParts({2023, 2, 29, 0, 0, 0}));
  EXPECT_FALSE(fk::OleDateFromParts({99, 12, 31, 0, 0, 0}));
  EXPECT_FALSE(fk::PartsFromOleDate(3e6));
  EXPECT_EQ(fk::FormatOleDate(3e6), "");
}

TEST(OleDateTest, TextInTheUsersFormatReadsBack) {
  for (const fk::OleDate date : {Date(2023, 11, 5, 14, 7, 9), Date(2023, 11, 5), Date(1899, 12, 30, 8, 30)}) {
    const std::string text = fk::FormatOleDate(date);
    const auto back = fk::ParseOleDate(text);
    ASSERT_TRUE(back) << text;
    EXPECT_DOUBLE_EQ(*back, date) << text;
  }
  EXPECT_EQ(fk::FormatOleDate(Date(2023, 11, 5)).find(':'), std::string::npos) << "midnight: the date alone";
  EXPECT_FALSE(fk::ParseOleDate("yesterday"));
  EXPECT_FALSE(fk::ParseOleDate(""));
  EXPECT_FALSE(fk::ParseOleDate(fk::FormatOleDate(Date(2023, 11, 5, 14, 7, 9)) + " and more"));
}

}  // namespace
