#include "platform/ui/wx/wx_progress_view.h"

#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/stattext.h>

#include <algorithm>

#include "platform/ui/wx/progress_layout.h"
#include "platform/ui/wx/wx_text.h"

namespace fk::ui {
namespace {

constexpr int kFirstWidth = 390;
constexpr int kFirstHeight = 130;
constexpr int kFirstRange = 100;
constexpr long kFrameStyle =
    wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX | wxSTAY_ON_TOP | wxFRAME_NO_TASKBAR | wxFRAME_TOOL_WINDOW;

void Place(wxWindow& window, const LayoutBox& box) { window.SetSize(box.x, box.y, box.width, box.height); }

// A dialog box that runs modally holds the input of its group of windows.
// The progress window of that dialog box's work stands in a group of its
// own, so that a click on its Cancel button still reaches it.
void KeepOwnWindowGroup(wxFrame& frame) {
  GtkWindowGroup* group = gtk_window_group_new();
  gtk_window_group_add_window(group, GTK_WINDOW(frame.GetHandle()));
  g_object_unref(group);  // the window holds the group
}

}  // namespace

WxProgressView::WxProgressView(bool smooth)
    : m_frame(new wxFrame(nullptr, wxID_ANY, wxString(), wxDefaultPosition, wxSize(kFirstWidth, kFirstHeight),
                          kFrameStyle, "progress")),
      m_panel(new wxPanel(m_frame)),
      m_text(new wxStaticText(m_panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                              "text")),
      m_gauge(new wxGauge(m_panel, wxID_ANY, kFirstRange, wxDefaultPosition, wxDefaultSize,
                          wxGA_HORIZONTAL | (smooth ? wxGA_SMOOTH : 0), wxDefaultValidator, "bar")),
      m_cancel(new wxButton(m_panel, wxID_ANY, "Cancel", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                            "cancel")),
      m_loop(new wxEventLoop) {
  KeepOwnWindowGroup(*m_frame);
  m_cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_bCancelPressed = true; });
  // The close box asks to cancel; the window itself goes with its view.
  m_frame->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();
    m_bCancelPressed = true;
  });
  m_frame->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() != WXK_ESCAPE) return event.Skip();
    m_bEscapePressed = true;
  });
  // Until the window is laid out, its parts stand as for one line of text.
  PlaceParts(1, kFirstWidth);
  m_frame->SetClientSize(kFirstWidth, kFirstHeight);
}

WxProgressView::~WxProgressView() {
  m_frame->Hide();
  delete m_frame;
}

void WxProgressView::SetTitle(const std::string& title) { m_frame->SetTitle(ToWx(title)); }

void WxProgressView::SetText(const std::string& text) { m_text->SetLabelText(ToWx(text)); }

void WxProgressView::SetCancelLabel(const std::string& label) {
  m_cancel->SetLabel(ToWx(label));
  PlaceParts(m_nLines, m_nWidth);
}

void WxProgressView::SetRange(int lower, int upper) {
  m_nLower = lower;
  m_nUpper = upper;
  m_gauge->SetRange(std::max(upper - lower, 1));
  ShowPosition();
}

int WxProgressView::SetPos(int position) {
  const int previous = m_nPos;
  m_nPos = position;
  ShowPosition();
  return previous;
}

// The bar shows the position within the range; outside it, the nearest end.
void WxProgressView::ShowPosition() {
  m_gauge->SetValue(std::clamp(m_nPos - m_nLower, 0, m_gauge->GetRange()));
}

void WxProgressView::SetLayout(int textLines, int width) {
  const ProgressLayout layout = PlaceParts(textLines, width);
  m_frame->SetClientSize(layout.width, layout.height);
}

ProgressLayout WxProgressView::PlaceParts(int textLines, int width) {
  const wxSize button = m_cancel->GetBestSize();
  const ProgressLayout layout = LayOutProgress(textLines, width, m_text->GetCharHeight(), button.x, button.y);
  m_nLines = textLines;
  m_nWidth = width;
  Place(*m_text, layout.text);
  Place(*m_gauge, layout.gauge);
  Place(*m_cancel, layout.button);
  return layout;
}

void WxProgressView::Show() { m_frame->Show(); }
void WxProgressView::Hide() { m_frame->Hide(); }
bool WxProgressView::IsVisible() const { return m_frame->IsShown(); }
void WxProgressView::Center() { m_frame->Centre(wxBOTH); }

ScreenPoint WxProgressView::Position() const {
  const wxPoint at = m_frame->GetPosition();
  return {at.x, at.y};
}

void WxProgressView::Move(ScreenPoint topLeft) { m_frame->Move(topLeft.x, topLeft.y); }

ScreenPoint WxProgressView::ScreenSize() const {
  const wxRect screen = wxDisplay(m_frame).GetGeometry();
  return {screen.width, screen.height};
}

bool WxProgressView::Pump(bool escapeCancels) {
  DispatchPending();
  const bool cancel = m_bCancelPressed || (escapeCancels && m_bEscapePressed);
  m_bCancelPressed = false;
  m_bEscapePressed = false;
  return cancel;
}

// Inside a running loop (a dialog box's), that loop handles what waits;
// outside any, the window's own loop is made the active one for the time.
void WxProgressView::DispatchPending() {
  if (wxEventLoopBase* running = wxEventLoopBase::GetActive()) {
    running->YieldFor(wxEVT_CATEGORY_ALL);
    return;
  }
  wxEventLoopActivator activate(m_loop.get());
  m_loop->YieldFor(wxEVT_CATEGORY_ALL);
}

}  // namespace fk::ui
