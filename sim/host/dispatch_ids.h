// The members of the host's automation objects by dispatch id: the wire
// format the emulator answers on, written out here as the host publishes it.
#pragma once

#include <cstdint>

namespace sim {

// The application object, served as "Cartoma.Application".
constexpr const char* kHostProgId = "Cartoma.Application";
constexpr std::int32_t kAppVisible = 0x60010005;           // put bool
constexpr std::int32_t kAppDo = 0x6001000B;                // method (statement)
constexpr std::int32_t kAppEval = 0x6001000C;              // method (expression) -> text
constexpr std::int32_t kAppLastErrorMessage = 0x60010009;  // get -> text
constexpr std::int32_t kAppCBXApplications = 0x6001000A;   // get -> collection of scripts
// The collection of running scripts.
constexpr std::int32_t kApplicationsItem = 0;  // method (name) -> script
// A running script.
constexpr std::int32_t kScriptDo = 0x60010005;          // method (statement)
constexpr std::int32_t kScriptEval = 0x60010006;        // method (expression) -> text
constexpr std::int32_t kScriptCBXGlobals = 0x60010004;  // get -> collection of globals
// The collection of a script's globals.
constexpr std::int32_t kGlobalsItem = 0;  // method (name) -> global
// A global variable.
constexpr std::int32_t kGlobalValue = 0;  // get -> text

}  // namespace sim
