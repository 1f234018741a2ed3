#include "exchange/minesight_export_dlg.h"

#include "exchange/minesight_format.h"
#include "services/help_launcher.h"

namespace {
constexpr unsigned IDS_MINESIGHT_FILTER = 2036;
constexpr unsigned IDS_SRG_EXTENSION = 2041;
}  // namespace

int CMineSightExportDlg::ExportTable(const NodeExportOptions& options, std::string& message) {
  return ExportMineSight(options, m_bFlipXY, message);
}

unsigned CMineSightExportDlg::BrowseExtensionId() const { return IDS_SRG_EXTENSION; }
unsigned CMineSightExportDlg::BrowseFilterId() const { return IDS_MINESIGHT_FILTER; }
int CMineSightExportDlg::HelpTopic() const { return HELP_MINESIGHT_EXPORT; }
