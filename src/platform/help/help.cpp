#include "platform/help/help.h"

#include <glib.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/paths/paths.h"

namespace fk {
namespace {

constexpr int kStarted = 42;
constexpr int kFileNotFound = 2;

// The parts of "-mapid <topic> ms-its:<file>": the topic and the file.
std::vector<std::string> TopicAndFile(const std::string& parameters) {
  const std::string marker = "ms-its:";
  int topic = 0;
  if (std::sscanf(parameters.c_str(), "-mapid %d", &topic) != 1) return {};
  const std::size_t file = parameters.find(marker);
  if (file == std::string::npos) return {std::to_string(topic)};
  return {std::to_string(topic), Native(parameters.substr(file + marker.size()))};
}

// A command line split the way a Windows program splits its own: blanks
// separate arguments, double quotes group them, and a backslash is a plain
// character unless it stands before a quote.
std::vector<std::string> SplitCommandLine(const std::string& line) {
  std::vector<std::string> args;
  std::string current;
  bool inQuotes = false, started = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '\\') {
      std::size_t run = 0;
      while (i + run < line.size() && line[i + run] == '\\') ++run;
      const bool beforeQuote = i + run < line.size() && line[i + run] == '"';
      current.append(beforeQuote ? run / 2 : run, '\\');
      if (beforeQuote && run % 2 == 1) {
        current += '"';  // an odd run escapes the quote
        ++run;
      }
      i += run - 1;
      started = true;
    } else if (c == '"') {
      inQuotes = !inQuotes;
      started = true;
    } else if ((c == ' ' || c == '\t') && !inQuotes) {
      if (started) args.push_back(current);
      current.clear();
      started = false;
    } else {
      current += c;
      started = true;
    }
  }
  if (started) args.push_back(current);
  return args;
}

bool Spawn(std::vector<std::string> argv, const std::string& directory) {
  std::vector<char*> pointers;
  for (std::string& arg : argv) pointers.push_back(arg.data());
  pointers.push_back(nullptr);
  const std::string folder = Native(directory);
  GError* error = nullptr;
  const bool started = g_spawn_async(folder.empty() ? nullptr : folder.c_str(), pointers.data(), nullptr,
                                     static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL),
                                     nullptr, nullptr, nullptr, &error);
  g_clear_error(&error);
  return started;
}

}  // namespace

int ShellExecuteHelp(const std::string& program, const std::string& parameters, const std::string& directory) {
  if (gchar* found = g_find_program_in_path(program.c_str())) {
    std::vector<std::string> argv = {found};
    g_free(found);
    for (std::string& word : SplitCommandLine(parameters)) argv.push_back(std::move(word));
    return Spawn(argv, directory) ? kStarted : kFileNotFound;
  }
  const char* configured = std::getenv("FORMKIT_HELP");
  if (!configured || !*configured) return kFileNotFound;
  std::vector<std::string> argv = {configured};
  for (std::string& part : TopicAndFile(parameters)) argv.push_back(std::move(part));
  return Spawn(argv, directory) ? kStarted : kFileNotFound;
}

}  // namespace fk
