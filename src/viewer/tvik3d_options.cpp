#include "viewer/tvik3d_options.h"

#include "platform/text/string_table.h"
#include "platform/ui/ui_backend.h"
#include "viewer/tvik3d_options_page1.h"
#include "viewer/tvik3d_options_page2.h"

namespace {

constexpr unsigned IDS_3D_OPTIONS = 2076;

}  // namespace

int RunTvik3DOptions(ViewerOptions options, int variant, CViewerLink& viewer, std::string& tempDirectory,
                     int& deleteOnExit) {
  CTvik3DOptionsPage1 system(options, variant);
  CTvik3DOptionsPage2 display(options, variant, viewer);
  system.m_bDeleteOnExit = deleteOnExit;
  system.m_strTempDirectory = tempDirectory;
  const int result = fk::ui::RunPropertySheet(fk::LoadString(IDS_3D_OPTIONS), {&system, &display});
  if (result == fk::ui::IDOK) {
    tempDirectory = system.m_strTempDirectory;
    deleteOnExit = system.m_bDeleteOnExit;
  }
  return result;
}
