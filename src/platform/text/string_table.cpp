#include "platform/text/string_table.h"

#include <algorithm>
#include <vector>

#include "platform/text/string_table_data.h"

namespace fk {
namespace {

const StringTableEntry* Find(unsigned id) {
  const StringTableEntry* end = kStringTable + kStringTableSize;
  const StringTableEntry* it =
      std::lower_bound(kStringTable, end, id, [](const StringTableEntry& e, unsigned key) { return e.id < key; });
  return it != end && it->id == id ? it : nullptr;
}

}  // namespace

std::string LoadString(unsigned id) {
  const StringTableEntry* entry = Find(id);
  return entry ? entry->text : std::string();
}

bool HasString(unsigned id) { return Find(id) != nullptr; }

std::string FormatString(unsigned id, std::initializer_list<MessageArg> args) {
  const std::vector<MessageArg> list(args);
  return FormatMessageText(LoadString(id), list);
}

}  // namespace fk
