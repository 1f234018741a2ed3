// cartoma-sim: the host emulator as a program of its own. It owns the name
// "Cartoma.Application" on the session bus (or on the bus given with
// --address) and serves the emulated host there until it is stopped.
//
//   cartoma-sim [--address BUS] [--script NAME]... [--global SCRIPT:NAME=VALUE]...
//               [--open TABLE-FILE]... [--projection CLAUSE|NAME]...
//
// With no --script, the product script "terravik.cbx" runs.
#include <glib-unix.h>
#include <glib.h>

#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "dispatch_ids.h"
#include "emulator.h"
#include "platform/automation/bus_classes.h"
#include "text_util.h"

namespace {

struct Options {
  std::string address;
  std::vector<std::string> scripts;
  std::vector<std::string> globals;
  std::vector<std::string> tables;
  std::vector<std::string> projections;
};

bool ReadOptions(int argc, char** argv, Options& options) {
  for (int i = 1; i < argc; ++i) {
    const std::string option = argv[i];
    if (i + 1 >= argc) return false;
    const std::string value = argv[++i];
    if (option == "--address")
      options.address = value;
    else if (option == "--script")
      options.scripts.push_back(value);
    else if (option == "--global")
      options.globals.push_back(value);
    else if (option == "--open")
      options.tables.push_back(value);
    else if (option == "--projection")
      options.projections.push_back(value);
    else
      return false;
  }
  return true;
}

bool Configure(sim::Emulator& emulator, const Options& options) {
  for (const std::string& script : options.scripts.empty() ? std::vector<std::string>{"terravik.cbx"} : options.scripts)
    emulator.AddScript(script);
  for (const std::string& global : options.globals) {
    const std::size_t colon = global.find(':'), equals = global.find('=');
    if (colon == std::string::npos || equals == std::string::npos || equals < colon) {
      std::cerr << "cartoma-sim: --global takes SCRIPT:NAME=VALUE, not " << global << "\n";
      return false;
    }
    emulator.SetGlobal(global.substr(0, colon), global.substr(colon + 1, equals - colon - 1),
                       global.substr(equals + 1));
  }
  for (const std::string& pick : options.projections) {
    const std::size_t bar = pick.find('|');
    emulator.QueueProjection(pick.substr(0, bar), bar == std::string::npos ? "" : pick.substr(bar + 1));
  }
  for (const std::string& table : options.tables) {
    try {
      emulator.GetHost().Do("Open Table " + sim::Quote(table));
    } catch (const std::exception& e) {
      std::cerr << "cartoma-sim: " << e.what() << "\n";
      return false;
    }
  }
  return true;
}

gboolean Quit(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_REMOVE;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (!ReadOptions(argc, argv, options)) {
    std::cerr << "usage: cartoma-sim [--address BUS] [--script NAME]... [--global SCRIPT:NAME=VALUE]...\n"
                 "                   [--open TABLE-FILE]... [--projection CLAUSE|NAME]...\n";
    return 2;
  }
  sim::Emulator emulator;
  if (!Configure(emulator, options)) return 1;
  std::string error;
  auto server = fk::BusServer::Publish(sim::kHostProgId, emulator.Application(), &error, options.address);
  if (!server) {
    std::cerr << "cartoma-sim: " << error << "\n";
    return 1;
  }
  GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
  g_unix_signal_add(SIGINT, Quit, loop);
  g_unix_signal_add(SIGTERM, Quit, loop);
  std::cerr << "cartoma-sim: serving " << sim::kHostProgId << "\n";
  g_main_loop_run(loop);
  server.reset();
  g_main_loop_unref(loop);
  return 0;
}
