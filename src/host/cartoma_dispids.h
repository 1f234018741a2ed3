// Dispatch ids of the host's automation objects: a wire format.
#pragma once

#include <cstdint>

// The host application object, "Cartoma.Application".
constexpr std::int32_t DISPID_CARTOMA_VISIBLE = 0x60010005;           // put bool
constexpr std::int32_t DISPID_CARTOMA_DO = 0x6001000B;                // method (statement)
constexpr std::int32_t DISPID_CARTOMA_EVAL = 0x6001000C;              // method (expression) -> text
constexpr std::int32_t DISPID_CARTOMA_LASTERRORMESSAGE = 0x60010009;  // get -> text
constexpr std::int32_t DISPID_CARTOMA_CBXAPPLICATIONS = 0x6001000A;   // get -> collection

// The collections CBXApplications and CBXGlobals.
constexpr std::int32_t DISPID_COLLECTION_ITEM = 0;  // method (name) -> object

// A running script.
constexpr std::int32_t DISPID_SCRIPT_DO = 0x60010005;          // method (statement)
constexpr std::int32_t DISPID_SCRIPT_EVAL = 0x60010006;        // method (expression) -> text
constexpr std::int32_t DISPID_SCRIPT_CBXGLOBALS = 0x60010004;  // get -> collection

// A script's global variable.
constexpr std::int32_t DISPID_GLOBAL_VALUE = 0;  // get -> text

constexpr const char* CARTOMA_PROGID = "Cartoma.Application";
