// The host emulator registered with a library the way a host program does
// it: through the host C API, of the library linked into the tests or of a
// fresh copy loaded with dlopen. Tables come from a private copy of the
// samples.
#pragma once

#include <memory>
#include <string>

#include "sim/host/linked_c_api.h"
#include "sim/host/emulator.h"
#include "support/formkit_library.h"
#include "support/session_fixture.h"

// The C API of a loaded copy of the library.
sim::HostCApi HostCApiOf(const FormkitLibrary& library);

// Copies the sample table `name` (.tab with its .gpkg or image) into
// `folder`; the path of its .tab there.
std::string CopySample(const ScopedFolder& folder, const std::string& name);

// A fresh copy of the library loaded as a host loads it, with the emulator
// registered through that copy's C API.
struct LibraryWithEmulator {
  // Whether the host ran a statement or expression containing `text`.
  bool HostRan(const std::string& text) const;

  FormkitLibrary library;
  sim::HostCApi api = HostCApiOf(library);
  sim::Emulator emulator;
  sim::CApiRegistration registration{api, emulator.Application()};
};

// The host session of the linked library connected to the emulator, which
// runs the product script, with a folder for the test's tables.
class EmulatorSessionTest : public HeadlessTest {
 protected:
  void SetUp() override;
  // Opens a private copy of the sample table `sample` under `alias`; its path.
  std::string Open(const char* sample, const char* alias);
  std::string Out(const std::string& name) const { return m_folder.Path() + "/" + name; }

  ScopedFolder m_folder;
  sim::Emulator m_emulator;
  sim::CApiRegistration m_registration{sim::LinkedHostCApi(), m_emulator.Application()};
};
