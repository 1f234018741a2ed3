#include "exchange/hotlink_converter.h"

#include "exchange/progress_step.h"
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"
#include "platform/text/string_table.h"

namespace {

constexpr unsigned IDS_CONVERTING_HOTLINKS = 2060;
constexpr unsigned IDS_CONVERT_PROGRESS = 2071;

constexpr std::string_view kLinkPrefix = "link:";

// Removes every `part` in one scan from the left, as a replace does, so
// that pieces which meet after a removal stay; false when there was none.
bool RemoveEvery(std::string& text, std::string_view part) {
  std::string kept;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(part, from)) != std::string::npos; from = at + part.size())
    kept.append(text, from, at - from);
  if (from == 0) return false;
  text = kept.append(text, from);
  return true;
}

// A text as the host's string literal: in double quotes, a quote inside doubled.
std::string Quoted(const std::string& text) {
  std::string literal = "\"";
  for (char c : text) {
    if (c == '"') literal += '"';
    literal += c;
  }
  return literal + '"';
}

}  // namespace

std::optional<std::string> ConvertHotlinkValue(const std::string& value, const HotlinkOptions& options) {
  std::string link = fk::ToLower(value);
  if (!RemoveEvery(link, kLinkPrefix)) return std::nullopt;
  fk::PathParts parts = fk::SplitPath(link);
  if (options.changeDirectory) parts.dir = options.newDirectory;
  if (options.pocketWord && parts.ext == ".psw") parts.ext = ".doc";
  if (options.pocketExcel && parts.ext == ".pxl") parts.ext = ".xls";
  // The drive goes in every case.
  return Quoted(parts.dir + parts.fname + parts.ext);
}

int ConvertLinks(const std::string& table, const std::vector<std::string>& fields, const HotlinkOptions& options,
                 std::string& message) {
  CProgressWnd progress(fk::LoadString(IDS_CONVERT_PROGRESS));
  // The range stays the window's own.
  progress.SetText("%s", fk::FormatString(IDS_CONVERTING_HOTLINKS, {table}));
  const int count = g_Cartoma.GetTableRowCount(table);
  for (long record = 1; record <= count; ++record) {
    if (CancelledAtStep(progress, message)) return 0;
    g_Cartoma.FetchRec(table, record);
    const std::string row = fk::Format("%ld", record);
    for (const std::string& field : fields)
      if (const std::optional<std::string> link = ConvertHotlinkValue(g_Cartoma.GetFieldValue(table, field), options))
        g_Cartoma.UpdateColumn(table, field, *link, row.c_str());
  }
  return 1;
}
