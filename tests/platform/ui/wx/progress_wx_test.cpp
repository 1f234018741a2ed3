// The progress window on screen: laid out in the window's terms, centred
// on the display, following the loop, and cancelled by its button, its
// close box or Escape, each seen at the loop's next pump.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/stattext.h>

#include "frame/formkit_app.h"
#include "services/progress_wnd.h"
#include "platform/ui/probe_dialog.h"
#include "dialogs_met.h"
#include "toolkit_test.h"
#include "toolkit_user.h"

namespace {

class ProgressWxTest : public ToolkitTest {
 protected:
  DialogsMet m_dialogs;

  // The progress window on screen (the only one), found by its name.
  static wxFrame& Window() {
    auto* frame = dynamic_cast<wxFrame*>(wxWindow::FindWindowByName("progress"));
    if (!frame) throw std::logic_error("no progress window");
    return *frame;
  }
  template <typename Kind>
  static Kind& Part(const char* name) {
    return dynamic_cast<Kind&>(*wxWindow::FindWindowByName(name, &Window()));
  }
};

TEST_F(ProgressWxTest, FourLinesAboveTheBarAndButtonCentredOnTheDisplayUntilTheUserMovesIt) {
  {
    CProgressWnd progress("Export Progress");
    wxFrame& window = Window();
    EXPECT_TRUE(window.IsShown());
    EXPECT_TRUE(window.HasFlag(wxSTAY_ON_TOP));
    const wxRect text = Part<wxStaticText>("text").GetRect();
    EXPECT_EQ(text.height, 4 * Part<wxStaticText>("text").GetCharHeight()) << "four lines of text";
    EXPECT_EQ(Part<wxGauge>("bar").GetRect().GetRight() + 1 + 10, Part<wxButton>("cancel").GetRect().x)
        << "the bar fills the row beside the button";
    EXPECT_EQ(window.GetPosition(), wxPoint((kScreenWidth - window.GetSize().x) / 2,
                                            (kScreenHeight - window.GetSize().y) / 2));
    window.Move(120, 90);  // by the user
  }
  CProgressWnd again;
  EXPECT_EQ(Window().GetPosition(), wxPoint(120, 90)) << "the window opens where the user left it";
}

TEST_F(ProgressWxTest, TheLoopMovesTheBarAndTheCancelButtonStopsIt) {
  int done = 0;
  {
    CProgressWnd progress("Export Progress");
    progress.SetRange(0, 10, 1);
    for (int i = 0; i < 10; ++i) {
      progress.SetText("Exporting Holes\nrow %d of %d", i + 1, 10);
      progress.StepIt();
      if (i == 5) {
        EXPECT_EQ(Part<wxGauge>("bar").GetValue(), 6);
        EXPECT_EQ(Window().GetTitle(), "Export Progress [60%]");
        user::Screenshot(Window(), "progress");
        wxTheApp->CallAfter([] { user::PressButton(Part<wxButton>("cancel")); });
      }
      progress.PeekAndPump(true);
      if (progress.Cancelled()) break;
      ++done;
    }
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_FALSE(Window().IsShown());
  }
  EXPECT_EQ(done, 5) << "the press waited for the loop's next pump";
  EXPECT_EQ(wxWindow::FindWindowByName("progress"), nullptr) << "the window goes with its loop";
  EXPECT_EQ(theApp.GetProfileInt("Settings", "X", -1), (kScreenWidth - 390) / 2);
}

// The work of a dialog box's button runs while the box holds the input
// of its windows; the progress window of that work must still take a click.
TEST_F(ProgressWxTest, AClickOnCancelReachesTheWindowWhileADialogBoxRuns) {
  wxDialog* running = nullptr;
  bool cancelled = false;
  ProbeDialog dialog(9001);
  dialog.onButton = [&](fk::ui::DialogView&, fk::ui::Prompter&, int) {
    CProgressWnd progress("Reprojecting");
    progress.SetRange(0, 10, 1);
    progress.StepIt();
    ASSERT_TRUE(user::MouseClick(Part<wxButton>("cancel"), *running)) << "the X server takes no simulated input";
    progress.PeekAndPump(false);
    cancelled = progress.Cancelled();
  };
  m_dialogs.Use([&](wxDialog& box) {
    running = &box;
    user::Press(box, ACT);
    user::Press(box, fk::ui::IDOK);
  });
  EXPECT_EQ(Backend().RunModal(dialog, TestTemplate(9001)), fk::ui::IDOK);
  EXPECT_TRUE(cancelled);
}

TEST_F(ProgressWxTest, EscapeCancelsOnlyWhenItCountsAndTheCloseBoxAlways) {
  {
    CProgressWnd progress;
    user::PressEscape(Window());
    progress.PeekAndPump(false);
    EXPECT_FALSE(progress.Cancelled());
    progress.PeekAndPump(true);
    EXPECT_FALSE(progress.Cancelled()) << "an Escape the loop didn't count is gone";
    user::PressEscape(Window());
    progress.PeekAndPump(true);
    EXPECT_TRUE(progress.Cancelled());
  }
  CProgressWnd closed;
  Window().Close();  // the close box
  EXPECT_TRUE(Window().IsShown()) << "the close box asks; the loop decides";
  closed.PeekAndPump(false);
  EXPECT_TRUE(closed.Cancelled());
}

}  // namespace
