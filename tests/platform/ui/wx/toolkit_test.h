// Tests of the toolkit backend: libformkit-wx.so loaded as the library
// loads it, on a private X server (Xvfb) that the program starts once, and
// put in place as the current backend, so that the dialog boxes of the
// linked library run on it too. Without Xvfb the tests are skipped. A
// check of the toolkit that fails inside the backend fails the test.
//
// Dialog templates made for these tests (templates/<id>.xrc) are read and
// given to the backend the way the library gives its own: 9001, a box with
// a control of every kind the dialog view knows; 9101 and 9102, two pages
// for a property sheet (a list and a button; an edit control).
#pragma once

#include <gtest/gtest.h>

#include "platform/ui/dialog_template.h"
#include "platform/ui/ui_backend.h"
#include "support/session_fixture.h"

// Controls of the box with every kind, numbered from 1100 on.
enum EveryControl { EDIT = 1100, LABEL, TRISTATE, RADIO_ONE, RADIO_TWO, LIST, COMBO, CHOICE, REPORT, ACT };

const fk::ui::DialogTemplate& TestTemplate(unsigned id);

// The size of the private display.
constexpr int kScreenWidth = 1024;
constexpr int kScreenHeight = 768;

class ToolkitTest : public SessionTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The backend of the loaded libformkit-wx.so, started on the private display.
  static fk::ui::UiBackend& Backend();
};
