#include "services/file_boxes.h"

#include <algorithm>

#include "platform/files/files.h"
#include "platform/ui/ui_backend.h"

namespace {
std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}
}  // namespace

int FilterIndexOf(const std::string& filter, const std::string& extension) {
  const std::string lowerFilter = Lower(filter);
  const std::size_t at = lowerFilter.find(Lower("*." + extension));
  if (at == std::string::npos) return 1;
  const auto separators = std::count(lowerFilter.begin(), lowerFilter.begin() + static_cast<std::ptrdiff_t>(at), '|');
  return 1 + static_cast<int>(separators / 2);
}

std::optional<std::string> OpenFileBox(const std::string& defaultExt, const std::string& fileName,
                                       const std::string& filter) {
  fk::ui::FileDialogRequest request;
  request.open = true;
  request.defaultExt = defaultExt;
  request.fileName = fileName;
  request.filter = filter;
  request.flags = fk::ui::OFN_HIDEREADONLY | fk::ui::OFN_OVERWRITEPROMPT | fk::ui::OFN_FILEMUSTEXIST;
  if (!filter.empty() && !defaultExt.empty()) request.filterIndex = FilterIndexOf(filter, defaultExt);
  return fk::ui::CurrentUi().GetPrompter().FileDialog(request);
}

std::optional<std::string> PickFolder(const std::string& title, const std::string& start) {
  if (!start.empty()) fk::SetCurrentFolder(start);
  return fk::ui::CurrentUi().GetPrompter().BrowseFolder(title, fk::CurrentFolder());
}
