// The viewer's list of objects as the library reads it, from any answer,
// under the sanitizers. A stand-in viewer answers ListObjects with the
// bytes: the first picks the lists' shapes (their lower bound, the names'
// apart from the others', a shorter kind list, a kind list that is no list,
// a name that is a number or a null); the rest are entries, one a line,
// each a kind byte and a name.
// The link reads inside the lists or fails with the automation layer's
// exception; the session's records, three composites with their parts,
// keep their number and their parts, and a part stays used only when its
// composite went unnamed or an entry names the part.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "platform/automation/exceptions.h"
#include "platform/automation/safe_array.h"
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "settings/temp_file_array.h"
#include "viewer/viewer_link.h"

namespace {

using fuzz::Require;

using fk::SafeArray;
using fk::Variant;

// The viewer's members as the viewer numbers them.
constexpr std::int32_t kGetMapWindow = 39;
constexpr std::int32_t kListObjects = 71;
constexpr std::int32_t kLowerBounds[] = {0, 1, -1, 7, INT32_MAX, INT32_MAX - 2, INT32_MIN, -5};

struct Entry {
  std::int32_t kind;
  std::string name;
};

std::vector<Entry> EntriesOf(const std::uint8_t* data, std::size_t size) {
  std::vector<Entry> entries;
  for (std::size_t at = 0; at < size;) {
    std::size_t end = at;
    while (end < size && data[end] != '\n') ++end;
    if (end > at) entries.push_back({static_cast<std::int8_t>(data[at]), std::string(data + at + 1, data + end)});
    at = end + 1;
  }
  return entries;
}

// Answers ListObjects with the entries, in the shape the first byte picks.
class AnsweringViewer : public fk::Dispatch {
 public:
  AnsweringViewer(std::uint8_t shape, std::vector<Entry> entries) : m_shape(shape), m_entries(std::move(entries)) {}

  Variant Invoke(std::int32_t dispid, std::uint16_t, std::span<Variant> args) override {
    if (dispid == kGetMapWindow) return Variant::Int(1);
    if (dispid != kListObjects || args.size() != 5) return Variant::Int(-1);
    const std::int32_t lower = kLowerBounds[m_shape & 7];
    const std::int32_t kindsLower = (m_shape & 0x80) ? 0 : lower;
    SafeArray names(fk::VT_VARIANT, lower), kinds(fk::VT_I4, kindsLower), thirds(fk::VT_I4, kindsLower);
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
      names.Append(NameOf(i));
      if (!((m_shape & 0x08) && i + 1 == m_entries.size())) kinds.Append(Variant::Int(m_entries[i].kind));
      thirds.Append(Variant::Int(static_cast<std::int32_t>(i)));
    }
    args[1].Assign(Variant::Int(static_cast<std::int32_t>(m_entries.size())));
    args[2].Assign(Variant::Array(std::move(names)));
    args[3].Assign((m_shape & 0x10) ? Variant::Int(0) : Variant::Array(std::move(kinds)));
    args[4].Assign(Variant::Array(std::move(thirds)));
    return Variant::Int(static_cast<std::int32_t>(m_entries.size()));
  }

 private:
  Variant NameOf(std::size_t i) const {
    if ((m_shape & 0x20) && i == 1) return Variant::Int(m_entries[i].kind);
    if ((m_shape & 0x40) && i == 2) return Variant::Null();
    return Variant::Text(m_entries[i].name);
  }

  std::uint8_t m_shape;
  std::vector<Entry> m_entries;
};

// Three composites of the session, each part used.
void FileParts(CTempFileArray& records) {
  records.m_bDeleteOnDestroy = 0;
  records.AddFilePart("/data/Pit Design.ogb", "/data/Pit Design/Stage 1.ogb", 1);
  records.AddFilePart("/data/Pit Design.ogb", "/data/Pit Design/Stage_2.OGB", 1);
  records.AddFilePart("/data/Pit Design.ogb", "/data/Pit Design/ROM pad.ogb", 1);
  records.AddFilePart("/data/holes.OGB", "/data/holes/Collars.ogb", 1);
  records.AddFilePart("C:\\work\\[x].ogb", "C:\\work\\x\\a b c.ogb", 1);
}

// An image entry names its composite from its first "[" on, without the
// blanks and brackets around it.
std::string TitleInBrackets(const std::string& name) {
  const std::size_t open = name.find('[');
  if (open == std::string::npos) return {};
  const std::size_t first = name.find_first_not_of(" []", open);
  if (first == std::string::npos) return {};
  return name.substr(first, name.find_last_not_of(" []") - first + 1);
}

std::string TitleAsListed(const std::string& path) {
  std::string title = fk::SplitPath(path).fname;
  for (char& c : title)
    if (c == ' ') c = '_';
  return title;
}

// A part ends unused only when an image entry named its composite, and used
// then only when a member entry names the part.
void CheckParts(const CTempFile& record, const std::vector<Entry>& entries) {
  const fk::PathParts file = fk::SplitPath(record.m_strFile);
  bool named = false;
  for (std::size_t i = 1; i < entries.size(); ++i)
    named = named || (entries[i].kind == 6 && fk::EqualsNoCase(TitleInBrackets(entries[i].name) + ".ogb", file.fname + file.ext));
  for (int p = 0; p < static_cast<int>(record.m_Parts.size()); ++p) {
    if (!record.m_PartsUsed[p]) {
      Require(named);
      continue;
    }
    bool listed = !named;
    for (std::size_t i = 1; i < entries.size() && !listed; ++i)
      listed = entries[i].kind == -2 && fk::EqualsNoCase(entries[i].name, TitleAsListed(record.GetPart(p)));
    Require(listed);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::uint8_t shape = data[0];
  const std::vector<Entry> entries = EntriesOf(data + 1, size - 1);
  CViewerLink link;
  link.m_ViewerInterface.AttachDispatch(std::make_shared<AnsweringViewer>(shape, entries));

  std::int32_t count = 0;
  std::vector<std::string> names;
  std::vector<std::int32_t> kinds, thirds;
  try {
    link.ListObjects(1, count, names, kinds, thirds);
    // Lists past the largest index end there.
    const std::int64_t fitting = std::int64_t{INT32_MAX} - kLowerBounds[shape & 7] + 1;
    Require(count == static_cast<std::int32_t>(entries.size()));
    Require(static_cast<std::int64_t>(names.size()) == std::min<std::int64_t>(fitting, entries.size()));
    Require(kinds.size() == names.size() && thirds.size() == names.size());
  } catch (const fk::OleException&) {
    return 0;  // a list the link cannot read: the call's failure
  }

  CTempFileArray records;
  FileParts(records);
  const std::size_t before = records.size();
  records.SyncWithViewer(link);
  Require(records.size() == before);
  // Without numbers or nulls for names, the link read the entries it kept.
  const std::vector<Entry> read(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(names.size()));
  for (const CTempFile& record : records)
    if ((shape & 0x60) == 0) CheckParts(record, read);
  return 0;
}
