#include "settings/feed_registry.h"

#include <climits>

#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/number_parse.h"
#include "settings/registry_values.h"

namespace {

int Variant() { return g_Cartoma.m_nProductVariant; }

// A number truncated to an int the way the processor does it: a value that
// doesn't fit becomes INT_MIN.
int TruncateToInt(double value) {
  if (!(value > static_cast<double>(INT_MIN) - 1 && value < static_cast<double>(INT_MAX) + 1)) return INT_MIN;
  return static_cast<int>(value);
}

}  // namespace

int GetRSSDelayDays() {
  if (!GetVariantKey(VariantKey::Setup, Variant())) return 0;
  const std::optional<std::string> stored = ReadVariantValue(VariantKey::Setup, Variant(), REG_RSS_DELAY);
  return stored ? TruncateToInt(fk::Atof(*stored)) : DEFAULT_RSS_DELAY_DAYS;
}

int SetRSSDelayDays(int days) {
  if (!GetVariantKey(VariantKey::Setup, Variant())) return 0;
  WriteVariantValue(VariantKey::Setup, Variant(), REG_RSS_DELAY, fk::Format("%ld", static_cast<long>(days)));
  return 1;
}

std::optional<std::string> GetRSSAccessDateText() {
  return ReadVariantValue(VariantKey::Setup, Variant(), REG_RSS_ACCESS_DATE);
}

void SetRSSAccessDate(fk::OleDate date) {
  WriteVariantValue(VariantKey::Setup, Variant(), REG_RSS_ACCESS_DATE, fk::FormatOleDate(date));
}
