#include "services/help_launcher.h"

#include "host/cartoma.h"
#include "host/product_variant.h"
#include "platform/help/help.h"
#include "platform/text/format.h"
#include "platform/text/string_table.h"

namespace {
constexpr const char* kHelpProgram = "hh.exe";
constexpr const char* kHelpDirectory = "c:\\";
constexpr unsigned IDS_HELP_FAILED = 2000;
constexpr int kShellStarted = 33;
constexpr const char* kViewerHelpParameters = "-mapid %d ms-its:%s\\Tvik3D.chm";
constexpr int kLinkManagerTopic = 11;

void RunHelpProgram(fk::ui::Prompter& prompter, const std::string& parameters) {
  if (fk::ShellExecuteHelp(kHelpProgram, parameters, kHelpDirectory) < kShellStarted)
    prompter.MessageBox(fk::FormatString(IDS_HELP_FAILED, {std::string(kHelpProgram), parameters}), fk::ui::MB_OK);
}

}  // namespace

std::string HelpParameters(int variant, int topic, const std::string& productDir, bool cursorPositionBox) {
  const ProductVariantInfo* info = GetProductVariantInfo(variant);
  if (!info) return {};
  return fk::Format(cursorPositionBox ? info->pszCurPosHelp : info->pszHelp, topic, productDir);
}

void LaunchHelp(fk::ui::Prompter& prompter, int topic, bool cursorPositionBox) {
  g_Cartoma.FindApplicationScript();  // the variant of the script that runs, if any
  const std::string parameters =
      HelpParameters(g_Cartoma.m_nProductVariant, topic, g_Cartoma.GetTerviDir(), cursorPositionBox);
  RunHelpProgram(prompter, parameters);
}

void LaunchLinkManagerHelp(fk::ui::Prompter& prompter) {
  RunHelpProgram(prompter, fk::Format(kViewerHelpParameters, kLinkManagerTopic, g_Cartoma.GetTerviDir()));
}
