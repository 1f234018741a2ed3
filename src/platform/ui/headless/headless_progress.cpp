#include "platform/ui/headless/headless_progress.h"

#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>

namespace fk::ui {
namespace {

std::atomic<bool> g_interrupted{false};
std::atomic<bool> g_quiet{false};
int g_shownWindows = 0;
void (*g_previousHandler)(int) = SIG_DFL;

void OnInterrupt(int) { g_interrupted = true; }

// While any progress window is shown, Ctrl-C means Cancel.
void CatchInterrupt() {
  if (g_shownWindows++ == 0) {
    g_interrupted = false;
    g_previousHandler = std::signal(SIGINT, OnInterrupt);
  }
}

void ReleaseInterrupt() {
  if (g_shownWindows > 0 && --g_shownWindows == 0) std::signal(SIGINT, g_previousHandler);
}

constexpr int kBarWidth = 30;
constexpr int kMaxPumpedEvents = 50;

}  // namespace

HeadlessProgress::HeadlessProgress(std::function<bool()> cancelRequested, std::shared_ptr<ProgressRecord> record)
    : m_cancelRequested(std::move(cancelRequested)), m_record(std::move(record)),
      m_bTerminal(isatty(STDERR_FILENO) == 1) {}

HeadlessProgress::~HeadlessProgress() { Hide(); }

void HeadlessProgress::SetTitle(const std::string& title) {
  if (title != m_record->title) ++m_record->titleChanges;
  m_record->title = title;
  Draw();
}

void HeadlessProgress::SetText(const std::string& text) {
  m_record->text = text;
  Draw();
}

void HeadlessProgress::SetRange(int lower, int upper) {
  m_record->lower = lower;
  m_record->upper = upper;
}

int HeadlessProgress::SetPos(int position) {
  const int previous = m_record->pos;
  m_record->pos = position;
  Draw();
  return previous;
}

void HeadlessProgress::SetLayout(int textLines, int width) {
  m_nWidth = width;
  m_nHeight = 60 + 16 * textLines;
}

void HeadlessProgress::Show() {
  if (m_record->shown) return;
  m_record->shown = true;
  CatchInterrupt();
  Draw();
}

void HeadlessProgress::Hide() {
  if (!m_record->shown) return;
  m_record->shown = false;
  ReleaseInterrupt();
  if (m_bTerminal && !g_quiet) std::fputs("\n", stderr);
}

void HeadlessProgress::Center() {
  const ScreenPoint screen = ScreenSize();
  m_position = {(screen.x - m_nWidth) / 2, (screen.y - m_nHeight) / 2};
}

bool HeadlessProgress::Pump(bool /*escapeCancels*/) {
  GMainContext* context = g_main_context_get_thread_default();
  for (int i = 0; i < kMaxPumpedEvents && g_main_context_iteration(context, FALSE); ++i) {
  }
  return g_interrupted.exchange(false) || (m_cancelRequested && m_cancelRequested());
}

void HeadlessProgress::SetQuiet(bool quiet) { g_quiet = quiet; }

void HeadlessProgress::Draw() {
  if (g_quiet || !m_record->shown) return;
  const ProgressRecord& r = *m_record;
  const int span = r.upper - r.lower;
  const double fraction = span > 0 ? std::clamp((r.pos - r.lower) / static_cast<double>(span), 0.0, 1.0) : 0.0;
  if (m_bTerminal)
    DrawBar(fraction);
  else
    WriteLine(fraction);
}

void HeadlessProgress::DrawBar(double fraction) const {
  const int filled = static_cast<int>(fraction * kBarWidth);
  std::string text = m_record->text;
  std::replace(text.begin(), text.end(), '\n', ' ');
  std::fprintf(stderr, "\r%s [%.*s%*s] %s\033[K", m_record->title.c_str(), filled, "##############################",
               kBarWidth - filled, "", text.c_str());
  std::fflush(stderr);
}

void HeadlessProgress::WriteLine(double fraction) {
  std::string text = m_record->text;
  if (text.empty()) return;
  std::replace(text.begin(), text.end(), '\n', ' ');
  const std::string line = std::to_string(static_cast<int>(fraction * 10) * 10) + "% " + text;
  if (line == m_strLastLine) return;
  m_strLastLine = line;
  std::fprintf(stderr, "%s\n", line.c_str());
}

}  // namespace fk::ui
