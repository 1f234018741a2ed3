// The products' registry values: text values under HKEY_CURRENT_USER, in
// the keys that differ per product variant (Setup, Messages, Settings). A
// registry failure is silent: a read gives nothing, a write false.
#pragma once

#include <optional>
#include <string>
#include <string_view>

enum class VariantKey { Setup, Messages, Settings };

// Value names.
inline constexpr const char* REG_LAST_VERSION = "LastVersion";
inline constexpr const char* REG_RSS_DELAY = "RSSDelay";
inline constexpr const char* REG_RSS_ACCESS_DATE = "RSSAccessDate";
inline constexpr const char* REG_CONFIG_DIR = "ConfigDir";
inline constexpr const char* REG_GRID_LIST = "GRID_LIST";
inline constexpr const char* REG_PROJECT_FOLDER = "PROJECT_FOLDER";

// The key `which` of `variant`; null for a variant out of range.
const char* GetVariantKey(VariantKey which, int variant);

// The text value `name`; nothing when the variant is out of range or the
// value is missing or not text.
std::optional<std::string> ReadVariantValue(VariantKey which, int variant, const char* name);
// Creates the key when needed and writes the text value.
bool WriteVariantValue(VariantKey which, int variant, const char* name, std::string_view value);
