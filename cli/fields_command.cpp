// formkit fields: the field selection dialog box over a table's columns.
// The box runs headless: the columns named by --select are chosen in the
// Available list and added, and OK is pressed; the names the export marks
// as selected are printed, one a line.
#include <strings.h>

#include <algorithm>
#include <iostream>

#include "cli_errors.h"
#include "commands.h"
#include "data_tables.h"
#include "formkit/formkit.h"
#include "host_session.h"
#include "platform/ui/dialog_controller.h"
#include "platform/ui/headless/headless_ui.h"
#include "services/select_fields_dlg.h"

namespace cli {
namespace {

struct FieldsOptions {
  std::string table;
  std::vector<std::string> select;
};

bool SameName(const std::string& a, const std::string& b) { return strcasecmp(a.c_str(), b.c_str()) == 0; }

void RequireColumns(const std::vector<std::string>& columns, const std::vector<std::string>& select,
                    const std::string& table) {
  for (const std::string& name : select)
    if (std::none_of(columns.begin(), columns.end(), [&](const std::string& c) { return SameName(c, name); }))
      throw UsageError("table " + table + " has no column " + name);
}

// The user's part: the named entries chosen in the Available list and
// added, then OK.
void ChooseAndAccept(fk::ui::HeadlessDialog& box, const std::vector<std::string>& select) {
  const int list = CSelectFieldsDlg::IDC_AVAILABLE;
  std::vector<int> entries;
  for (int i = 0; i < box.View().ListCount(list); ++i)
    for (const std::string& name : select)
      if (SameName(box.View().ListText(list, i), name)) entries.push_back(i);
  if (!entries.empty()) {
    box.SelectEntries(list, entries);
    box.Press(CSelectFieldsDlg::IDC_ADD);
  }
  box.Press(fk::ui::IDOK);
}

void RunFields(const GlobalOptions& global, const FieldsOptions& options) {
  HostSession session(global);
  const std::vector<std::string> columns = ColumnsOfOpenTable(options.table);
  RequireColumns(columns, options.select, options.table);
  fk::ui::DefaultHeadlessUi().OnDialog(
      CSelectFieldsDlg::IDD, [select = options.select](fk::ui::HeadlessDialog& box) { ChooseAndAccept(box, select); });
  std::vector<const char*> names;
  for (const std::string& column : columns) names.push_back(column.c_str());
  std::vector<std::int32_t> flags(columns.size(), 0);
  if (SelectFieldsDialog(names.data(), flags.data(), static_cast<std::int32_t>(names.size())) != 1)
    throw ToolFailure("the field selection was cancelled");
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (flags[i]) std::cout << columns[i] << "\n";
}

}  // namespace

void AddFieldsCommand(CLI::App& app, const GlobalOptions& options) {
  auto fields = std::make_shared<FieldsOptions>();
  CLI::App* command = app.add_subcommand("fields", "Choose columns of a table in the field selection dialog box");
  command->add_option("table", fields->table, "An open table (see --data)")->required();
  command->add_option("--select", fields->select, "The columns to choose")->type_name("NAME");
  command->footer(Example("{formkit} --data {samples}/collars.tab fields collars --select HoleID MaxDepth"));
  OnRun(command, options, [&options, fields] { RunFields(options, *fields); });
}

}  // namespace cli
