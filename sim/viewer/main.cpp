// tv-sim: the 3D viewer simulator. Built as Terravik3D.exe (and copied as
// Zelvar3D.exe), it serves the viewer's three automation objects under the
// names "TV.InterfaceCOM", "TV.InterfaceSurveyCOM" and
// "TV.InterfaceDatasetCOM" on the session bus until Shutdown is called or
// it is stopped.
//
//   Terravik3D.exe [-tvik|-zelvar] [--debug] [--record FILE] [--own-after MS]
//                  [--version TEXT] [--address BUS]
//
// --debug also owns the "TVD." names; --record appends a line per call to
// FILE; --own-after waits MS milliseconds before taking the names. A viewer
// started by the library gets only its product switch, so the environment
// gives the defaults of the last three: TV_SIM_RECORD, TV_SIM_OWN_AFTER and
// TV_SIM_VERSION. TV_SIM_FAULT makes it misbehave: "fail" raises an
// error at every call, "exit:N" ends the program at its Nth call.
#include <glib-unix.h>
#include <glib.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "faulty_viewer.h"
#include "platform/automation/bus_classes.h"
#include "viewer_ids.h"
#include "viewer_objects.h"

namespace {

struct Options {
  bool debug = false;
  std::string record;
  int ownAfterMs = 0;
  std::string version;
  std::string address;
};

std::string FromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  return value ? value : "";
}

bool ReadOptions(int argc, char** argv, Options& options) {
  options.record = FromEnvironment("TV_SIM_RECORD");
  options.ownAfterMs = std::atoi(FromEnvironment("TV_SIM_OWN_AFTER").c_str());
  options.version = FromEnvironment("TV_SIM_VERSION");
  for (int i = 1; i < argc; ++i) {
    const std::string option = argv[i];
    if (option == "-tvik" || option == "-zelvar") continue;  // the product; both serve the same objects
    if (option == "--debug") {
      options.debug = true;
      continue;
    }
    if (i + 1 >= argc) return false;
    const std::string value = argv[++i];
    if (option == "--record")
      options.record = value;
    else if (option == "--own-after")
      options.ownAfterMs = std::stoi(value);
    else if (option == "--version")
      options.version = value;
    else if (option == "--address")
      options.address = value;
    else
      return false;
  }
  return true;
}

struct Simulator {
  Options options;
  std::shared_ptr<tv::ViewerState> state;
  std::vector<std::unique_ptr<fk::BusServer>> servers;
  GMainLoop* loop = nullptr;
  bool failed = false;
};

void Serve(Simulator& sim, const char* name, fk::DispatchPtr object) {
  std::string error;
  auto server = fk::BusServer::Publish(name, std::move(object), &error, sim.options.address);
  if (!server || !server->OwnsName()) {
    std::cerr << "tv-sim: can't serve " << name << ": " << (server ? "the name has another owner" : error) << "\n";
    sim.failed = true;
    g_main_loop_quit(sim.loop);
    return;
  }
  sim.servers.push_back(std::move(server));
}

gboolean Publish(gpointer data) {
  auto& sim = *static_cast<Simulator*>(data);
  const std::shared_ptr<tv::Fault> fault = tv::Fault::FromText(FromEnvironment("TV_SIM_FAULT"));
  const fk::DispatchPtr viewer = tv::WithFault(tv::MakeViewerObject(sim.state), fault);
  const fk::DispatchPtr survey = tv::WithFault(tv::MakeSurveyObject(sim.state), fault);
  const fk::DispatchPtr dataset = tv::WithFault(tv::MakeDatasetObject(sim.state), fault);
  // The survey and dataset objects first: once the viewer's own name is
  // owned, clients take the viewer as started.
  Serve(sim, tv::kSurveyName, survey);
  Serve(sim, tv::kDatasetName, dataset);
  if (sim.options.debug) {
    Serve(sim, tv::kDebugSurveyName, survey);
    Serve(sim, tv::kDebugDatasetName, dataset);
    Serve(sim, tv::kDebugViewerName, viewer);
  }
  Serve(sim, tv::kViewerName, viewer);
  return G_SOURCE_REMOVE;
}

gboolean Quit(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_REMOVE;
}

}  // namespace

int main(int argc, char** argv) {
  Simulator sim;
  if (!ReadOptions(argc, argv, sim.options)) {
    std::cerr << "usage: Terravik3D.exe [-tvik|-zelvar] [--debug] [--record FILE] [--own-after MS]\n"
                 "                      [--version TEXT] [--address BUS]\n";
    return 2;
  }
  sim.state = std::make_shared<tv::ViewerState>(tv::ViewerState{{}, tv::CallRecord(sim.options.record), {}});
  if (!sim.options.version.empty()) sim.state->scene.m_strVersion = sim.options.version;
  sim.loop = g_main_loop_new(nullptr, FALSE);
  sim.state->onShutdown = [&sim] { g_main_loop_quit(sim.loop); };
  g_timeout_add(static_cast<guint>(std::max(sim.options.ownAfterMs, 0)), Publish, &sim);
  g_unix_signal_add(SIGINT, Quit, sim.loop);
  g_unix_signal_add(SIGTERM, Quit, sim.loop);
  g_main_loop_run(sim.loop);
  sim.servers.clear();
  g_main_loop_unref(sim.loop);
  return sim.failed ? 1 : 0;
}
