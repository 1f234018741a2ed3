// Dialog templates made for the toolkit tests (templates/<id>.xrc), read
// and given to the backend the way the library gives its own: 9001, a box
// with a control of every kind the dialog view knows; 9101 and 9102, two
// pages for a property sheet (a list and a button; an edit control).
#pragma once

#include "platform/ui/dialog_template.h"

// Controls of the box with every kind.
enum EveryControl {
  EDIT = 1100,
  LABEL = 1101,
  TRISTATE = 1102,
  RADIO_ONE = 1103,
  RADIO_TWO = 1104,
  LIST = 1105,
  COMBO = 1106,
  CHOICE = 1107,
  REPORT = 1108,
  ACT = 1109,
};

const fk::ui::DialogTemplate& TestTemplate(unsigned id);
