#include "platform/registry/registry.h"

#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <system_error>

#include "platform/files/file_lock.h"

namespace fk {
namespace {

constexpr int kBusyTimeoutMs = 10000;

const char* const kSchema =
    "CREATE TABLE IF NOT EXISTS reg_keys(path TEXT PRIMARY KEY COLLATE NOCASE);"
    "CREATE TABLE IF NOT EXISTS reg_values(key TEXT NOT NULL COLLATE NOCASE,"
    " name TEXT NOT NULL COLLATE NOCASE, type INTEGER NOT NULL, data,"
    " PRIMARY KEY(key, name));";

// "\Software\\Orvex\" and "Software\Orvex" name the same key.
std::string NormalizeKey(std::string_view key) {
  std::string path;
  std::size_t start = 0;
  while (start <= key.size()) {
    std::size_t end = key.find('\\', start);
    if (end == std::string_view::npos) end = key.size();
    if (end > start) {
      if (!path.empty()) path += '\\';
      path.append(key.substr(start, end - start));
    }
    start = end + 1;
  }
  return path;
}

struct DbClose {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
using Db = std::unique_ptr<sqlite3, DbClose>;

struct StmtFinalize {
  void operator()(sqlite3_stmt* stmt) const { sqlite3_finalize(stmt); }
};
using Stmt = std::unique_ptr<sqlite3_stmt, StmtFinalize>;

Db OpenHive(Hive hive, bool forWriting) {
  const std::filesystem::path file = Registry::HiveFile(hive);
  std::error_code ec;
  if (forWriting) {
    std::filesystem::create_directories(file.parent_path(), ec);
  } else if (!std::filesystem::exists(file, ec)) {
    return nullptr;  // reading never creates a hive
  }
  sqlite3* raw = nullptr;
  const int flags = forWriting ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
  if (sqlite3_open_v2(file.c_str(), &raw, flags, nullptr) != SQLITE_OK) {
    sqlite3_close(raw);
    return nullptr;
  }
  Db db(raw);
  sqlite3_busy_timeout(raw, kBusyTimeoutMs);
  return db;
}

Stmt Prepare(sqlite3* db, const char* sql) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) != SQLITE_OK) return nullptr;
  return Stmt(stmt);
}

void BindText(sqlite3_stmt* stmt, int index, std::string_view text) {
  sqlite3_bind_text(stmt, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

bool InsertKeyPath(sqlite3* db, const std::string& key) {
  Stmt insert = Prepare(db, "INSERT OR IGNORE INTO reg_keys(path) VALUES(?)");
  if (!insert) return false;
  // The key and every key above it.
  for (std::size_t end = 0; end != std::string::npos;) {
    end = key.find('\\', end + 1);
    sqlite3_reset(insert.get());
    BindText(insert.get(), 1, std::string_view(key).substr(0, end));
    if (sqlite3_step(insert.get()) != SQLITE_DONE) return false;
  }
  return true;
}

// Runs `work` in one write transaction; commits when it succeeds. Writers
// of the hive take turns through a lock file beside it, on which a waiting
// process sleeps until its turn: the store's own retries alone let a busy
// writer starve another past its timeout. (A lock on the hive's own file
// would end the store's locks on it when released.)
template <typename Work>
bool WriteTransaction(Hive hive, Work&& work) {
  Db db = OpenHive(hive, true);
  if (!db) return false;
  const FileLock turn(Registry::HiveFile(hive).string() + ".lock");
  if (!turn.Held()) return false;
  if (sqlite3_exec(db.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) return false;
  const bool ok = sqlite3_exec(db.get(), kSchema, nullptr, nullptr, nullptr) == SQLITE_OK && work(db.get());
  return sqlite3_exec(db.get(), ok ? "COMMIT" : "ROLLBACK", nullptr, nullptr, nullptr) == SQLITE_OK && ok;
}

bool SetValue(Hive hive, std::string_view key, std::string_view name, const RegValue& value) {
  const std::string path = NormalizeKey(key);
  if (path.empty()) return false;
  return WriteTransaction(hive, [&](sqlite3* db) {
    if (!InsertKeyPath(db, path)) return false;
    Stmt stmt = Prepare(db, "INSERT OR REPLACE INTO reg_values(key, name, type, data) VALUES(?, ?, ?, ?)");
    if (!stmt) return false;
    BindText(stmt.get(), 1, path);
    BindText(stmt.get(), 2, name);
    sqlite3_bind_int64(stmt.get(), 3, value.type);
    if (value.type == REG_DWORD)
      sqlite3_bind_int64(stmt.get(), 4, value.dword);
    else
      BindText(stmt.get(), 4, value.text);
    return sqlite3_step(stmt.get()) == SQLITE_DONE;
  });
}

}  // namespace

std::filesystem::path Registry::HiveFile(Hive hive) {
  const char* fileName = hive == Hive::CurrentUser ? "user.db" : "machine.db";
  if (const char* dir = std::getenv("FORMKIT_REGISTRY_DIR"); dir && *dir) return std::filesystem::path(dir) / fileName;
  if (hive == Hive::LocalMachine) return std::filesystem::path("/etc/orvex") / fileName;
  std::filesystem::path config;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg)
    config = xdg;
  else if (const char* home = std::getenv("HOME"); home && *home)
    config = std::filesystem::path(home) / ".config";
  else
    config = "/tmp";
  return config / "orvex" / fileName;
}

bool Registry::CreateKey(Hive hive, std::string_view key) {
  const std::string path = NormalizeKey(key);
  if (path.empty()) return false;
  return WriteTransaction(hive, [&](sqlite3* db) { return InsertKeyPath(db, path); });
}

bool Registry::KeyExists(Hive hive, std::string_view key) {
  Db db = OpenHive(hive, false);
  if (!db) return false;
  Stmt stmt = Prepare(db.get(), "SELECT 1 FROM reg_keys WHERE path = ?");
  if (!stmt) return false;
  BindText(stmt.get(), 1, NormalizeKey(key));
  return sqlite3_step(stmt.get()) == SQLITE_ROW;
}

bool Registry::DeleteTree(Hive hive, std::string_view key) {
  const std::string path = NormalizeKey(key);
  if (path.empty() || !KeyExists(hive, path)) return false;
  // Keys below are matched by LIKE, which ignores ASCII case as key names
  // do; "%", "_" and the escape character in names are escaped.
  std::string below;
  for (char c : path) {
    if (c == '%' || c == '_' || c == '!') below += '!';
    below += c;
  }
  below += "\\%";
  return WriteTransaction(hive, [&](sqlite3* db) {
    for (const char* sql : {"DELETE FROM reg_values WHERE key = ?1 OR key LIKE ?2 ESCAPE '!'",
                            "DELETE FROM reg_keys WHERE path = ?1 OR path LIKE ?2 ESCAPE '!'"}) {
      Stmt stmt = Prepare(db, sql);
      if (!stmt) return false;
      BindText(stmt.get(), 1, path);
      BindText(stmt.get(), 2, below);
      if (sqlite3_step(stmt.get()) != SQLITE_DONE) return false;
    }
    return true;
  });
}

std::optional<RegValue> Registry::QueryValue(Hive hive, std::string_view key, std::string_view name) {
  Db db = OpenHive(hive, false);
  if (!db) return std::nullopt;
  Stmt stmt = Prepare(db.get(), "SELECT type, data FROM reg_values WHERE key = ? AND name = ?");
  if (!stmt) return std::nullopt;
  BindText(stmt.get(), 1, NormalizeKey(key));
  BindText(stmt.get(), 2, name);
  if (sqlite3_step(stmt.get()) != SQLITE_ROW) return std::nullopt;
  RegValue value;
  value.type = static_cast<std::uint32_t>(sqlite3_column_int64(stmt.get(), 0));
  if (value.type == REG_DWORD) {
    value.dword = static_cast<std::uint32_t>(sqlite3_column_int64(stmt.get(), 1));
  } else {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt.get(), 1));
    value.text.assign(text ? text : "", static_cast<std::size_t>(sqlite3_column_bytes(stmt.get(), 1)));
  }
  return value;
}

std::optional<std::string> Registry::QueryString(Hive hive, std::string_view key, std::string_view name) {
  auto value = QueryValue(hive, key, name);
  if (!value || value->type != REG_SZ) return std::nullopt;
  return value->text;
}

std::optional<std::uint32_t> Registry::QueryDword(Hive hive, std::string_view key, std::string_view name) {
  auto value = QueryValue(hive, key, name);
  if (!value || value->type != REG_DWORD) return std::nullopt;
  return value->dword;
}

bool Registry::SetString(Hive hive, std::string_view key, std::string_view name, std::string_view text) {
  return SetValue(hive, key, name, RegValue{REG_SZ, std::string(text), 0});
}

bool Registry::SetDword(Hive hive, std::string_view key, std::string_view name, std::uint32_t number) {
  return SetValue(hive, key, name, RegValue{REG_DWORD, {}, number});
}

bool Registry::DeleteValue(Hive hive, std::string_view key, std::string_view name) {
  if (!QueryValue(hive, key, name)) return false;
  return WriteTransaction(hive, [&](sqlite3* db) {
    Stmt stmt = Prepare(db, "DELETE FROM reg_values WHERE key = ? AND name = ?");
    if (!stmt) return false;
    BindText(stmt.get(), 1, NormalizeKey(key));
    BindText(stmt.get(), 2, name);
    return sqlite3_step(stmt.get()) == SQLITE_DONE;
  });
}

std::vector<std::string> Registry::ValueNames(Hive hive, std::string_view key) {
  std::vector<std::string> names;
  Db db = OpenHive(hive, false);
  if (!db) return names;
  Stmt stmt = Prepare(db.get(), "SELECT name FROM reg_values WHERE key = ? ORDER BY rowid");
  if (!stmt) return names;
  BindText(stmt.get(), 1, NormalizeKey(key));
  while (sqlite3_step(stmt.get()) == SQLITE_ROW)
    names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(stmt.get(), 0)));
  return names;
}

}  // namespace fk
