// A private X server (Xvfb) for the toolkit tests, started once per test
// program on a display number it picks itself. It ends by itself when the
// last program using it (this one) goes.
#pragma once

#include <string>

class PrivateDisplay {
 public:
  // Starts the server on first use and points DISPLAY at it.
  static const PrivateDisplay& Get();

  bool Running() const { return m_bRunning; }
  // Why there is no server, for a skipped test.
  const std::string& Problem() const { return m_strProblem; }
  int Width() const { return kWidth; }
  int Height() const { return kHeight; }

  static constexpr int kWidth = 1024;
  static constexpr int kHeight = 768;

 private:
  PrivateDisplay();
  void Start();

  bool m_bRunning = false;
  std::string m_strProblem;
};
