// Hotlink values as the converter rewrites them: only values with "link:",
// lower-cased, without their drive, in the host's string expression form.
// (Plain values and a new folder with its separator: the host's table, tests/e2e.)
#include <gtest/gtest.h>

#include "exchange/hotlink_converter.h"

namespace {

TEST(HotlinkConverterTest, ValuesBecomeDesktopPathsAsTheOptionsSay) {
  const HotlinkOptions both;  // Pocket Word and Pocket Excel, no new directory
  const HotlinkOptions none{false, "", false, false};
  const HotlinkOptions movedNoSeparator{true, "D:\\Desk", true, true};
  struct Case {
    const HotlinkOptions& options;
    const char* value;
    std::optional<std::string> expression;
  };
  const Case cases[] = {
      {both, "link:\\My Documents\\Site01.psw", "\"\\my documents\\site01.doc\""},
      {both, "LINK:C:\\Storage Card\\Notes.PXL", "\"\\storage card\\notes.xls\""},
      {both, "lilink:nk:\\a.doc", "\"link:\\a.doc\""},
      {both, "link:\\say \"hi\".psw", "\"\\say \"\"hi\"\".doc\""},
      {none, "link:C:\\X\\Y.psw", "\"\\x\\y.psw\""},
      {movedNoSeparator, "link:survey.psw", "\"D:\\Desksurvey.doc\""},
  };
  for (const Case& c : cases) EXPECT_EQ(ConvertHotlinkValue(c.value, c.options), c.expression) << c.value;
}

}  // namespace
