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
