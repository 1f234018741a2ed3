// Tests of the toolkit backend: libformkit-wx.so loaded as the library
// loads it, on a private X server. Without Xvfb they are skipped. A check
// of the toolkit that fails inside the backend fails the test.
#pragma once

#include <gtest/gtest.h>

#include "platform/ui/ui_backend.h"
#include "support/session_fixture.h"

class ToolkitTest : public SessionTest {
 protected:
  void SetUp() override;

  // The backend of the loaded libformkit-wx.so, started on the private
  // display.
  static fk::ui::UiBackend& Backend();
};

// The same backend put in place as the current one, so that the dialog
// boxes of the linked library run on it.
class ToolkitDialogTest : public ToolkitTest {
 protected:
  void SetUp() override;
  void TearDown() override;
};
