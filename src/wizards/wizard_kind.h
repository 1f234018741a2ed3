// What tells the drillhole wizard and the trench wizard apart: one table of
// constants each, and each wizard's own memory of the series it made.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The series a wizard made, with the dataset of each, for the life of the
// module. Nothing is ever taken out.
struct WizardMemory {
  std::vector<std::string> m_SeriesNames;
  std::vector<std::int32_t> m_Datasets;

  void Add(const std::string& series, std::int32_t dataset);
  // The dataset of the last entry named exactly `series`, else -1.
  std::int32_t DatasetOf(const std::string& series) const;
};

struct SeriesWizardKind {
  unsigned listTableText;  // the host's table of chosen holes; 0: "_CollarSubset"
  unsigned groupTitle;
  unsigned caption;
  bool trench;                // the box's suffix texts for trenches
  unsigned dialogSuffixText;  // the suffix set just before the box opens; 0: the box's own
  const char* surveySortKey;  // the survey's metadata key of its second sort column
  std::int32_t seriesKind;    // looked for and added under this kind
  unsigned refreshQuestion;
  unsigned failureText;       // shown when the viewer fails the series
  WizardMemory& (*memory)();  // made at the first call
};

extern const SeriesWizardKind DRILLHOLE_WIZARD;
extern const SeriesWizardKind TRENCH_WIZARD;

// The host's working table of the chosen holes.
std::string ListTableOf(const SeriesWizardKind& kind);
