#include "services/progress_wnd.h"

#include "platform/app/app_base.h"
#include "platform/text/string_table.h"
#include "platform/ui/ui_backend.h"

namespace {
constexpr unsigned IDS_PROGRESS_TITLE = 2082;
constexpr unsigned IDS_PROGRESS_CANCEL = 2083;
constexpr const char* kSettings = "Settings";
}  // namespace

CProgressWnd::CProgressWnd(const std::string& title, bool smooth)
    : m_strTitle(title.empty() ? fk::LoadString(IDS_PROGRESS_TITLE) : title),
      m_strCancelLabel(fk::LoadString(IDS_PROGRESS_CANCEL)),
      m_view(fk::ui::CurrentUi().CreateProgressView(smooth)) {
  m_view->SetTitle(m_strTitle);
  m_view->SetCancelLabel(m_strCancelLabel);
  SetWindowSize(m_nNumTextLines, 390);
  if (m_bPersistantPosition)
    GetPreviousSettings();
  else
    m_view->Center();
  Show();
}

CProgressWnd::~CProgressWnd() {
  if (m_bPersistantPosition) SaveCurrentSettings();
  m_bModal = 0;
}

void CProgressWnd::SetRange(int lower, int upper, int step) {
  m_nMinValue = lower;
  m_nMaxValue = upper;
  m_nStep = step;
  m_view->SetRange(lower, upper);
}

void CProgressWnd::SetTextLine(const std::string& text) { m_view->SetText(text); }

int CProgressWnd::SetPos(int position) {
  Show();
  m_nPrevPos = position;
  int percent = 0;
  if (m_nMaxValue > m_nMinValue)
    percent = static_cast<int>((position - m_nMinValue) * 100.0 / (m_nMaxValue - m_nMinValue) + 0.5);
  if (percent != m_nPrevPercent) {
    m_nPrevPercent = percent;
    m_view->SetTitle(fk::Format("%s [%d%%]", m_strTitle, percent));
  }
  return m_view->SetPos(position);
}

int CProgressWnd::StepIt() {
  Show();
  return SetPos(m_nPrevPos + m_nStep);
}

void CProgressWnd::PeekAndPump(bool cancelOnEscape) {
  if (m_bCancelled) return;
  if (m_view->Pump(cancelOnEscape)) OnCancel();
}

void CProgressWnd::Show() {
  if (!m_view->IsVisible()) m_view->Show();
}

void CProgressWnd::SetWindowSize(int textLines, int width) {
  m_nNumTextLines = textLines;
  m_view->SetLayout(textLines, width);
}

void CProgressWnd::OnCancel() {
  if (m_bPersistantPosition) SaveCurrentSettings();
  m_bCancelled = 1;
  if (m_view->IsVisible()) m_view->Hide();
}

void CProgressWnd::GetPreviousSettings() {
  fk::AppBase* app = fk::AppBase::Current();
  const int x = app ? app->GetProfileInt(kSettings, "X", -1) : -1;
  const int y = app ? app->GetProfileInt(kSettings, "Y", -1) : -1;
  const fk::ui::ScreenPoint screen = m_view->ScreenSize();
  // A position on a screen that is no longer there falls back to the centre.
  if (x >= 0 && x < screen.x && y >= 0 && y < screen.y)
    m_view->Move({x, y});
  else
    m_view->Center();
}

void CProgressWnd::SaveCurrentSettings() {
  fk::AppBase* app = fk::AppBase::Current();
  if (!app) return;
  const fk::ui::ScreenPoint position = m_view->Position();
  app->WriteProfileInt(kSettings, "X", position.x);
  app->WriteProfileInt(kSettings, "Y", position.y);
}
