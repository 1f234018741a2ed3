// The string table: every message and caption of the system under its
// number, compiled into the library from resources/strings.tsv.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/text/message_format.h"

namespace fk {

// The text under `id`; empty when there is none.
std::string LoadString(unsigned id);
bool HasString(unsigned id);
// The text under `id` with its "%1"-style places filled.
std::string FormatString(unsigned id, std::initializer_list<MessageArg> args);

}  // namespace fk
