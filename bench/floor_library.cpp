// The floor of loading: a library that needs only what the core library
// may need (GLib/GIO, SQLite, fmt and the C++ runtime), and uses each so
// that the loader maps them all.
#include <fmt/format.h>
#include <gio/gio.h>
#include <sqlite3.h>

#include <string>

extern "C" __attribute__((visibility("default"))) int floor_library_touch() {
  const std::string text = fmt::format("{}", sqlite3_libversion_number());
  GFile* file = g_file_new_for_path(text.c_str());
  g_object_unref(file);
  return static_cast<int>(text.size());
}
