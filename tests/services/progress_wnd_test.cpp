// The progress window of long loops: its percentage title, cancelling, and
// the position it remembers.
#include <gtest/gtest.h>

#include "frame/formkit_app.h"
#include "services/progress_wnd.h"
#include "support/headless_fixture.h"

namespace {

using ProgressWndTest = HeadlessTest;

TEST_F(ProgressWndTest, TheTitleChangesOnlyWithTheRoundedPercentageOfARange) {
  {
    CProgressWnd progress("Export Progress");
    progress.SetText("Exporting %s: %d rows", "Holes", 200000);
    progress.SetRange(0, 200000, 1);
    for (int i = 0; i < 200000; ++i) progress.StepIt();
  }
  const fk::ui::ProgressRecord& record = *m_ui.Progress().back();
  EXPECT_EQ(record.title, "Export Progress [100%]");
  EXPECT_EQ(record.text, "Exporting Holes: 200000 rows");
  EXPECT_EQ(record.pos, 200000);
  EXPECT_EQ(record.titleChanges, 1 + 100) << "the first title, then one change per percent";

  CProgressWnd empty;
  empty.SetRange(0, 0, 1);
  empty.StepIt();
  empty.StepIt();
  EXPECT_EQ(m_ui.Progress().back()->title, "Progress") << "an empty range keeps the title";
  EXPECT_EQ(m_ui.Progress().back()->titleChanges, 1);
  EXPECT_EQ(empty.m_nPrevPercent, 0);
}

TEST_F(ProgressWndTest, CancelStopsTheLoopAndRemembersWhereTheWindowStood) {
  m_ui.CancelProgressAfter(3);
  int done = 0;
  {
    CProgressWnd progress("Import Progress");
    progress.SetRange(0, 10, 1);
    for (int i = 0; i < 10; ++i) {
      progress.StepIt();
      progress.PeekAndPump(true);
      if (progress.Cancelled()) break;
      ++done;
    }
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_FALSE(m_ui.Progress().back()->shown);
  }
  EXPECT_EQ(done, 2);
  // Headless windows stand centred on a 1024 by 768 screen.
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1), (1024 - 390) / 2);
  EXPECT_GE(theApp.GetProfileInt("Settings", "Y", -1), 0);

  // A stored position off the screen falls back to the centre.
  theApp.WriteProfileInt("Settings", "X", 5000);
  theApp.WriteProfileInt("Settings", "Y", 10);
  { CProgressWnd progress; }
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1), (1024 - 390) / 2);

  theApp.WriteProfileInt("Settings", "X", 40);
  theApp.WriteProfileInt("Settings", "Y", 30);
  { CProgressWnd progress; }
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1), 40);
  EXPECT_EQ(theApp.GetProfileInt("Settings", "Y", -1), 30);
}

}  // namespace
