// The toolkit tests of boxes that open over the host's tables: a host
// emulated in the process, registered as a script registers it, with one
// table of objects (Pits, a point whose Name is a handheld hotlink) opened
// from its file as a user opens it, and the product script running.
#pragma once

#include "dialogs_met.h"
#include "sim/host/emulator.h"
#include "sim/host/linked_c_api.h"
#include "toolkit_test.h"

class HostedToolkitTest : public ToolkitTest {
 protected:
  void SetUp() override {
    ToolkitTest::SetUp();
    if (IsSkipped()) return;
    sim::Host& host = m_emulator.GetHost();
    host.Do("Set CoordSys NonEarth Units \"m\"");
    host.Do("Create Table Made (Name Char (10))");
    host.Do("Insert Into Made (Name) Values(\"link:\\a.psw\")");
    host.Do("Dim p As Object");
    host.Do("Create Point Into Variable p (1500.25, 250.5)");
    host.Do("Update Made Set Obj = p Where RowID = 1");
    host.Do("Commit Table Made As \"" + m_folder.Path() + "/Pits.tab\"");
    host.Do("Close Table Made");
    host.Do("Open Table \"" + m_folder.Path() + "/Pits.tab\"");
    m_emulator.AddScript("terravik.cbx");
  }

  ScopedFolder m_folder;
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
  DialogsMet m_dialogs;
};
