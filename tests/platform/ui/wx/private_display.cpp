#include "private_display.h"

#include <fcntl.h>
#include <glib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace {

// The server writes the display number it took, then a newline, to `fd`.
std::string ReadDisplayNumber(int fd) {
  std::string number;
  char c = 0;
  while (read(fd, &c, 1) == 1 && c != '\n') number += c;
  return number;
}

// Runs Xvfb in a child process; -terminate ends it when its last client
// leaves.
pid_t SpawnServer(int displayFd, int width, int height) {
  const pid_t pid = fork();
  if (pid != 0) return pid;
  const int quiet = open("/dev/null", O_WRONLY);
  if (quiet >= 0) dup2(quiet, STDERR_FILENO);
  const std::string fd = std::to_string(displayFd);
  const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
  execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen.c_str(), "-nolisten", "tcp", "-terminate",
         static_cast<char*>(nullptr));
  _exit(127);
}

// The toolkit talks to the server alone: no accessibility bus, no desktop
// settings service, no other kind of display.
void PointToolkitAt(const std::string& number) {
  setenv("DISPLAY", (":" + number).c_str(), 1);
  unsetenv("WAYLAND_DISPLAY");
  setenv("GDK_BACKEND", "x11", 1);
  setenv("NO_AT_BRIDGE", "1", 1);
  setenv("GTK_A11Y", "none", 1);
  setenv("GSETTINGS_BACKEND", "memory", 1);
}

}  // namespace

const PrivateDisplay& PrivateDisplay::Get() {
  static const PrivateDisplay display;
  return display;
}

PrivateDisplay::PrivateDisplay() { Start(); }

void PrivateDisplay::Start() {
  const std::unique_ptr<gchar, decltype(&g_free)> xvfb(g_find_program_in_path("Xvfb"), g_free);
  if (!xvfb) {
    m_strProblem = "Xvfb is not installed (Debian package xvfb)";
    return;
  }
  int pipeFds[2];
  if (pipe(pipeFds) != 0) {
    m_strProblem = "no pipe for Xvfb";
    return;
  }
  const pid_t pid = SpawnServer(pipeFds[1], kWidth, kHeight);
  close(pipeFds[1]);
  const std::string number = ReadDisplayNumber(pipeFds[0]);
  close(pipeFds[0]);
  if (pid < 0 || number.empty()) {
    if (pid > 0) waitpid(pid, nullptr, 0);
    m_strProblem = "Xvfb did not start";
    return;
  }
  PointToolkitAt(number);
  m_bRunning = true;
}
