#include "wizards/wizard_kind.h"

#include "platform/text/string_table.h"
#include "viewer/viewer_dispids.h"

namespace {

WizardMemory& DrillholeMemory() {
  static WizardMemory memory;
  return memory;
}

WizardMemory& TrenchMemory() {
  static WizardMemory memory;
  return memory;
}

}  // namespace

const SeriesWizardKind DRILLHOLE_WIZARD = {
    0, 2049, 2050, false, 0, "\\Terravik\\xsects\\dhsurvey\\DSTo", OBJECT_DRILLHOLE_SERIES, 2011, 2012,
    DrillholeMemory};
const SeriesWizardKind TRENCH_WIZARD = {
    1154, 2096, 2097, true, 1155, "\\Terravik\\xsects\\dhsurvey\\DSO", OBJECT_TRENCH_SERIES, 2098, 2099,
    TrenchMemory};

std::string ListTableOf(const SeriesWizardKind& kind) {
  return kind.listTableText ? fk::LoadString(kind.listTableText) : "_CollarSubset";
}

void WizardMemory::Add(const std::string& series, std::int32_t dataset) {
  m_SeriesNames.push_back(series);
  m_Datasets.push_back(dataset);
}

std::int32_t WizardMemory::DatasetOf(const std::string& series) const {
  std::int32_t dataset = -1;
  for (std::size_t i = 0; i < m_SeriesNames.size(); ++i)
    if (m_SeriesNames[i] == series) dataset = m_Datasets[i];
  return dataset;
}
