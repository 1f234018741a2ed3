// "Field Selection": an Available and a Selected list with four buttons
// between them. Entries carry item data; moving takes the source from its
// last entry to its first, so a moved block arrives in reverse order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/dialog_controller.h"

class CSelectFieldsDlg : public fk::ui::DialogController {
 public:
  enum { IDD = 1003 };
  enum Controls {
    IDC_AVAILABLE = 1027,
    IDC_SELECTED = 1028,
    IDC_REMOVE = 1029,
    IDC_ADD = 1030,
    IDC_ADD_ALL = 1031,
    IDC_REMOVE_ALL = 1032,
    IDC_GROUP = 1093,
  };

  // The wizards use a fuller template of their own.
  explicit CSelectFieldsDlg(unsigned templateId = IDD);

  bool OnInitDialog() override;

  std::string m_strGroupText;
  std::string m_strTitle;
  std::vector<std::string> m_AvailableNames;
  std::vector<std::string> m_SelectedNames;
  std::vector<std::intptr_t> m_AvailableData;
  std::vector<std::intptr_t> m_SelectedData;

 protected:
  void OnOK() override;
  void OnButton(int id) override;
  // Moves the chosen entries (all of them with `all`) from one list to the other.
  void MoveEntries(int from, int to, bool all);
  // Adds the names with their item data; a name beyond the data gets 0.
  void FillList(int id, const std::vector<std::string>& names, const std::vector<std::intptr_t>& data);

 private:
  void ReadList(int id, std::vector<std::string>& names, std::vector<std::intptr_t>& data);
};

// The export's work: flag 0 puts a name in the Available list, any other
// flag in the Selected list; on OK every name equal, ignoring case, to a
// selected entry gets 1 and all others 0. 1 on OK, 0 otherwise.
int RunSelectFields(const char* const* names, std::int32_t* flags, std::int32_t count);
