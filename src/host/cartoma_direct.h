// What the scripts can do with a host handle of their own, outside the
// session: run a statement or an expression, and reach any running script
// by name. Each attaches a driver of its own to the handle, without
// ownership, for the one call.
#pragma once

#include <cstdint>
#include <string>

// 1, also for handle 0; 0 after the host raised an error, whose description
// goes to g_strCartomaLastError.
int DirectDo(std::int32_t dispatch, const std::string& statement);
// The value; empty after an error (g_strCartomaLastError holds it).
std::string DirectEval(std::int32_t dispatch, const std::string& expression);
// The command goes to the script's Do. 0 until a first command has reached
// a script, 1 ever after.
int DirectScriptCommand(std::int32_t dispatch, const std::string& script, const std::string& command);
// The value of the script's Eval; empty when the script is not running.
std::string DirectScriptQuery(std::int32_t dispatch, const std::string& script, const std::string& query);
// The value of a global variable of the script; empty when not found.
std::string DirectScriptVariable(std::int32_t dispatch, const std::string& script, const std::string& variable);
// The host's value of "<table>.<column>".
std::string DirectTableFieldValue(std::int32_t dispatch, const std::string& table, const std::string& column);
