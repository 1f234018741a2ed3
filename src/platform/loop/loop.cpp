#include "platform/loop/loop.h"

#include <glib.h>

#include <map>

namespace fk {
namespace {

// The timers of this thread that haven't fired yet, by id.
thread_local std::map<unsigned, GSource*> t_timers;

struct Timer {
  unsigned id = 0;
  TimerCallback callback;
  bool repeating = false;
};

void Forget(unsigned id) {
  auto it = t_timers.find(id);
  if (it == t_timers.end()) return;
  GSource* source = it->second;
  t_timers.erase(it);
  g_source_unref(source);
}

gboolean Fire(gpointer data) {
  auto* timer = static_cast<Timer*>(data);
  if (timer->repeating) {
    // The callback may kill its own timer, which deletes `timer`: the id
    // decides afterwards whether it still runs.
    const unsigned id = timer->id;
    timer->callback();
    return t_timers.count(id) ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
  }
  Forget(timer->id);
  timer->callback();
  return G_SOURCE_REMOVE;
}

void Delete(gpointer data) { delete static_cast<Timer*>(data); }

unsigned StartTimer(const char* name, unsigned elapseMs, TimerCallback callback, bool repeating) {
  GSource* source = g_timeout_source_new(elapseMs);
  g_source_set_name(source, name);
  auto* timer = new Timer{0, std::move(callback), repeating};
  g_source_set_callback(source, Fire, timer, Delete);
  GMainContext* context = g_main_context_ref_thread_default();
  timer->id = g_source_attach(source, context);
  g_main_context_unref(context);
  t_timers[timer->id] = source;  // the map keeps the reference g_timeout_source_new gave
  return timer->id;
}

}  // namespace

unsigned SetTimer(const char* name, unsigned elapseMs, TimerCallback callback) {
  return StartTimer(name, elapseMs, std::move(callback), false);
}

unsigned SetRepeatingTimer(const char* name, unsigned periodMs, TimerCallback callback) {
  return StartTimer(name, periodMs, std::move(callback), true);
}

bool KillTimer(unsigned id) {
  auto it = t_timers.find(id);
  if (it == t_timers.end()) return false;
  g_source_destroy(it->second);
  Forget(id);
  return true;
}

int PumpMessages(int limit) {
  GMainContext* context = g_main_context_ref_thread_default();
  int dispatched = 0;
  while (dispatched < limit && g_main_context_iteration(context, FALSE)) ++dispatched;
  g_main_context_unref(context);
  return dispatched;
}

}  // namespace fk
