#include "toolkit_user.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dcmemory.h>
#include <wx/dcclient.h>
#include <wx/evtloop.h>
#include <wx/listbox.h>
#include <wx/radiobut.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>

#include <filesystem>
#include <stdexcept>

namespace user {
namespace {

template <typename Kind>
Kind& As(wxWindow& root, int id) {
  auto* control = dynamic_cast<Kind*>(&Control(root, id));
  if (!control) throw std::logic_error("control " + std::to_string(id) + " is not of the kind used");
  return *control;
}

void Notify(wxWindow& control, wxEventType type, int value) {
  wxCommandEvent event(type, control.GetId());
  event.SetEventObject(&control);
  event.SetInt(value);
  control.HandleWindowEvent(event);
}

// Runs the toolkit's loop until the window has drawn itself once more.
void AwaitDrawing(wxTopLevelWindow& window) {
  wxEventLoop loop;
  bool drawn = false;
  auto onPaint = [&](wxPaintEvent& event) {
    event.Skip();
    if (drawn) return;
    drawn = true;
    wxTheApp->CallAfter([&] { loop.Exit(); });
  };
  window.Bind(wxEVT_PAINT, onPaint);
  window.Refresh();
  loop.Run();
  window.Unbind(wxEVT_PAINT, onPaint);
}

}  // namespace

wxWindow& Control(wxWindow& root, int id) {
  // Among the children: a box may bear the number of one of its controls.
  for (wxWindow* child : root.GetChildren())
    if (wxWindow* control = wxWindow::FindWindowByName(wxString::Format("%d", id), child)) return *control;
  throw std::logic_error("no control " + std::to_string(id) + " on the window");
}

std::vector<std::string> Entries(wxWindow& root, int id) {
  auto& items = dynamic_cast<wxItemContainer&>(Control(root, id));
  std::vector<std::string> texts;
  for (unsigned i = 0; i < items.GetCount(); ++i) texts.push_back(items.GetString(i).utf8_string());
  return texts;
}

void Press(wxWindow& root, int id) { PressButton(Control(root, id)); }

void PressButton(wxWindow& button) {
  if (!button.IsShown() || !button.IsEnabled())
    throw std::logic_error("button " + button.GetName().utf8_string() + " can't be pressed");
  Notify(button, wxEVT_BUTTON, 0);
}

void SelectEntries(wxWindow& root, int id, const std::vector<int>& indices) {
  auto& list = As<wxListBox>(root, id);
  list.DeselectAll();
  for (int index : indices) list.SetSelection(index);
  Notify(list, wxEVT_LISTBOX, indices.empty() ? wxNOT_FOUND : indices.back());
}

void ChooseCombo(wxWindow& root, int id, int index) {
  auto& combo = As<wxChoice>(root, id);
  combo.SetSelection(index);
  Notify(combo, wxEVT_COMBOBOX, index);
}

void Click(wxWindow& root, int id) {
  wxWindow& control = Control(root, id);
  if (auto* box = dynamic_cast<wxCheckBox*>(&control)) {
    // A click goes from unchecked to checked, then (with three states) to
    // undetermined, then back to unchecked.
    const wxCheckBoxState state = box->Get3StateValue();
    const wxCheckBoxState next = state == wxCHK_UNCHECKED                          ? wxCHK_CHECKED
                                 : state == wxCHK_CHECKED && box->Is3rdStateAllowedForUser() ? wxCHK_UNDETERMINED
                                                                                   : wxCHK_UNCHECKED;
    box->Set3StateValue(next);
    Notify(*box, wxEVT_CHECKBOX, next);
  } else if (auto* radio = dynamic_cast<wxRadioButton*>(&control)) {
    radio->SetValue(true);
    Notify(*radio, wxEVT_RADIOBUTTON, 1);
  } else {
    throw std::logic_error("control " + std::to_string(id) + " can't be clicked");
  }
}

bool MouseClick(wxWindow& target, wxWindow& witness) {
  AwaitDrawing(*dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(&target)));
  wxUIActionSimulator pointer;
  wxEventLoop loop;
  bool witnessed = false;  // the simulator may let the toolkit take the input at once
  auto seen = [&](wxMouseEvent& event) {
    event.Skip();
    witnessed = true;
    if (loop.IsRunning()) loop.ScheduleExit();
  };
  witness.Bind(wxEVT_MOTION, seen);
  const wxRect area = target.GetScreenRect();
  const bool simulated = pointer.MouseMove(area.GetPosition() + area.GetSize() / 2) && pointer.MouseClick() &&
                         pointer.MouseMove(witness.ClientToScreen(wxPoint(2, 2)));
  if (simulated && !witnessed) loop.Run();
  witness.Unbind(wxEVT_MOTION, seen);
  return simulated;
}

void PressEscape(wxWindow& window) {
  wxKeyEvent event(wxEVT_CHAR_HOOK);
  event.m_keyCode = WXK_ESCAPE;
  event.SetEventObject(&window);
  window.HandleWindowEvent(event);
}

std::string Screenshot(wxTopLevelWindow& window, const std::string& name) {
  AwaitDrawing(window);
  const wxSize size = window.GetSize();
  wxBitmap picture(size.x, size.y, 24);
  {
    wxWindowDC drawn(&window);
    wxMemoryDC memory(picture);
    if (!memory.Blit(0, 0, size.x, size.y, &drawn, 0, 0)) ADD_FAILURE() << "the window's pixels could not be read";
  }
  std::filesystem::create_directories(FORMKIT_TEST_ARTIFACTS);
  const std::string path = (std::filesystem::path(FORMKIT_TEST_ARTIFACTS) / name).replace_extension(".png").string();
  if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxImage::AddHandler(new wxPNGHandler);
  if (!picture.ConvertToImage().SaveFile(path, wxBITMAP_TYPE_PNG)) ADD_FAILURE() << "no picture saved at " << path;
  return path;
}

}  // namespace user
