// The registry: keys of names separated by "\", each with named values of
// type REG_SZ (text) or REG_DWORD (32-bit number).
//
// Each hive is one SQLite database: the user's under $XDG_CONFIG_HOME/orvex/
// (else ~/.config/orvex/), the machine's under /etc/orvex/; the environment
// variable FORMKIT_REGISTRY_DIR puts both in that folder instead. Key and
// value names compare ignoring case. Every write is a transaction, so that
// two processes writing at once lose nothing. Reads never create a file.
// Failures are silent: a read gives nothing, a write gives false.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fk {

enum class Hive { CurrentUser, LocalMachine };

enum RegType : std::uint32_t { REG_NONE = 0, REG_SZ = 1, REG_DWORD = 4 };

struct RegValue {
  std::uint32_t type = REG_NONE;
  std::string text;          // REG_SZ
  std::uint32_t dword = 0;   // REG_DWORD
};

class Registry {
 public:
  // Creates the key and the keys above it, or finds it; false when the hive
  // can't be written.
  static bool CreateKey(Hive hive, std::string_view key);
  static bool KeyExists(Hive hive, std::string_view key);
  // Deletes the key with everything below it.
  static bool DeleteTree(Hive hive, std::string_view key);

  static std::optional<RegValue> QueryValue(Hive hive, std::string_view key, std::string_view name);
  // The value when it exists with that type.
  static std::optional<std::string> QueryString(Hive hive, std::string_view key, std::string_view name);
  static std::optional<std::uint32_t> QueryDword(Hive hive, std::string_view key, std::string_view name);

  // Creates the key when missing, then writes the value.
  static bool SetString(Hive hive, std::string_view key, std::string_view name, std::string_view value);
  static bool SetDword(Hive hive, std::string_view key, std::string_view name, std::uint32_t value);
  static bool DeleteValue(Hive hive, std::string_view key, std::string_view name);
  static std::vector<std::string> ValueNames(Hive hive, std::string_view key);

  // Where the hive's database file lives.
  static std::filesystem::path HiveFile(Hive hive);
};

}  // namespace fk
