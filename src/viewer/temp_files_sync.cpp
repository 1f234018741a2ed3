// Learning from the viewer which parts of the session's composite files it
// still shows: its list of objects names each loaded composite by its title
// in square brackets, followed by the composite's members.
#include "platform/paths/paths.h"
#include "platform/text/letter_case.h"
#include "platform/text/trim.h"
#include "settings/temp_file_array.h"
#include "viewer/viewer_dispids.h"
#include "viewer/viewer_link.h"

namespace {

// The title of a loaded image as the viewer lists it: "... [title]".
std::string BracketedTitle(const std::string& entry) {
  const std::size_t open = entry.find('[');
  return fk::TrimCharacters(open == std::string::npos ? std::string() : entry.substr(open), " []");
}

std::string WithBlanksAsUnderscores(std::string text) {
  for (char& c : text)
    if (c == ' ') c = '_';
  return text;
}

}  // namespace

void CTempFileArray::SyncWithViewer(CViewerLink& viewer) {
  const int view = viewer.GetMapWindow(true);
  std::int32_t count = 0;
  std::vector<std::string> names;
  std::vector<std::int32_t> kinds, thirds;
  viewer.ListObjects(view, count, names, kinds, thirds);
  CTempFile current;
  int currentIndex = -1;
  for (std::size_t i = 1; i < names.size(); ++i) {
    if (kinds[i] == OBJECT_IMAGE) {
      current = FindFile(BracketedTitle(names[i]) + ".ogb", &currentIndex, 1);
      if (current.m_bNamed) {
        current.ClearPartsUsed();
        StoreBack(currentIndex, current);
      }
    } else if (kinds[i] == OBJECT_IMAGE_MEMBER && current.m_bNamed) {
      for (int p = 0; p < static_cast<int>(current.m_Parts.size()); ++p) {
        const fk::PathParts parts = fk::SplitPath(current.GetPart(p));
        if (!fk::EqualsNoCase(WithBlanksAsUnderscores(parts.fname + parts.ext), names[i] + ".ogb")) continue;
        current.SetPartUsed(p, 1);
        StoreBack(currentIndex, current);
      }
    }
  }
}
