// The compiled string table, sorted by number (made by tools/embed_strings).
#pragma once

namespace fk {

struct StringTableEntry {
  unsigned id;
  const char* text;
};

extern const StringTableEntry kStringTable[];
extern const unsigned kStringTableSize;

}  // namespace fk
