// Starting the viewer program where its installer recorded it, and waiting
// until it serves its objects.
#include "platform/files/files.h"
#include "platform/process/input_idle.h"
#include "platform/registry/registry.h"
#include "platform/text/letter_case.h"
#include "platform/ui/dialog_view.h"
#include "platform/ui/prompter.h"
#include "platform/ui/ui_backend.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_link.h"

namespace {

// The texts and the key of one of the two viewer programs.
struct ViewerProgram {
  const char* key;
  const char* switchText;
  const char* notFound;
  const char* caption;
  const char* notStarted;
};

constexpr ViewerProgram kTerravik3D = {
    "Software\\Orvex\\Terravik 3D", "-tvik", "Error - Could not locate Terravik3D", "Terravik3D",
    "Terravik3D has not started in the expected time. Do you want to continue to wait for it?"};
constexpr ViewerProgram kZelvar3D = {
    "Software\\Orvex\\Zelvar3D", "-zelvar", "Error - Could not locate Zelvar3D", "Zelvar3D",
    "Zelvar3D has not started in the expected time. Do you want to continue to wait for it?"};

constexpr int kFirstWaitMs = 30000;
constexpr int kFurtherWaitMs = 15000;

const ViewerProgram& ProgramOf(const char* product) {
  return product && fk::EqualsNoCase(product, "Zelvar3D") ? kZelvar3D : kTerravik3D;
}

int NotFound(const ViewerProgram& program, int code) {
  fk::ui::CurrentUi().GetPrompter().MessageBox(program.notFound, fk::ui::MB_OK);
  return code;
}

// Waits for the new viewer, asking whether to wait on each time-out.
void WaitForViewer(const ViewerProgram& program, fk::ChildProcess& process, int waitMs) {
  while (fk::WaitForInputIdle(process, kViewerProgId, waitMs) == fk::InputIdle::TimedOut) {
    const int answer = fk::ui::CurrentUi().GetPrompter().CaptionedMessageBox(
        program.notStarted, program.caption, fk::ui::MB_YESNO | fk::ui::MB_ICONQUESTION);
    if (answer == fk::ui::IDNO) return;
    waitMs = kFurtherWaitMs;
  }
}

}  // namespace

int CViewerLink::LaunchViewer(const char* product, const void* parent) {
  (void)parent;  // the question stands over no window of the host here
  const ViewerProgram& program = ProgramOf(product);
  const fk::Hive hive = fk::Hive::LocalMachine;
  if (!fk::Registry::KeyExists(hive, program.key)) return NotFound(program, -2);
  const int waitMs = static_cast<int>(fk::Registry::QueryDword(hive, program.key, "TIMEOUT").value_or(kFirstWaitMs));
  const std::string programPath = fk::Registry::QueryString(hive, program.key, "ProgramPath").value_or("");
  if (!programPath.empty() && !fk::FileExists(programPath)) return NotFound(program, -3);
  const std::optional<std::string> installation = fk::Registry::QueryString(hive, program.key, "Installation");
  if (installation && !fk::FolderExists(*installation)) return NotFound(program, -3);
  if (!installation) return NotFound(program, -2);

  fk::ChildProcess process = fk::ChildProcess::Spawn(programPath, {programPath, program.switchText}, *installation);
  if (!process.Started()) return -1;
  WaitForViewer(program, process, waitMs);
  const int pid = process.Pid();
  process.Detach();  // the viewer runs on; the library never waits for its end
  return pid;
}
