// Statements that change the host's tables, in their fixed forms and order.
#include "host/cartoma.h"
#include "platform/paths/paths.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"

namespace {
constexpr int MENU_FILE_OPEN = 102;
}

bool CCartoma::DoBracketed(const std::string& statement) {
  // The host shows no progress box of its own; the closing statement goes
  // also after a failure, and only the inner statement decides.
  Do("Set ProgressBars Off");
  int error = 0;
  Do(statement, 1, &error);
  Do("Set ProgressBars On");
  return error == 0;
}

namespace {
bool Succeeded(CCartoma& host, const std::string& statement) {
  int error = 0;
  host.Do(statement, 1, &error);
  return error == 0;
}
}  // namespace

bool CCartoma::OpenTable(const char* path, const char* alias, int hide, int viewAutomatic) {
  if (!path) return Succeeded(*this, fk::Format("Run Menu Command %d", MENU_FILE_OPEN));
  std::string statement = fk::Format("Open Table \"%s\"", path);
  if (alias) statement += std::string(" As ") + alias;
  if (hide) statement += " Hide";
  if (viewAutomatic) statement += " View Automatic";
  return Succeeded(*this, statement);
}

bool CCartoma::CloseTable(const std::string& table) { return Succeeded(*this, fk::Format("Close Table \"%s\"", table)); }

bool CCartoma::CloseTablesByFile(const std::string& path, int nameOnly) {
  const std::string upperPath = fk::ToUpper(path);
  std::vector<std::string> tables;
  ListTableNames(&tables);
  const std::string target = nameOnly ? PathToTableName(upperPath) : upperPath;
  bool result = false;
  for (const std::string& table : tables) {
    const std::string tablePath = fk::ToUpper(GetTablePath(table));
    std::string compared = tablePath;
    if (nameOnly) {
      const fk::PathParts parts = fk::SplitPath(tablePath);
      compared = parts.fname + parts.ext;
    }
    if (compared == target) result = CloseTable(table);
  }
  return result;
}

bool CCartoma::CommitTable(const std::string& table) { return DoBracketed(fk::Format("Commit Table %s", table)); }

bool CCartoma::CommitTableAs(const std::string& table, const std::string& path, const char* coordSys,
                             int interactive) {
  std::string statement = fk::Format("Commit Table %s As \"%s\"", table, path);
  if (coordSys) statement += std::string(" CoordSys ") + coordSys;
  if (interactive) statement += " Interactive";
  return DoBracketed(statement);
}

bool CCartoma::DropTable(const std::string& table) { return Succeeded(*this, fk::Format("Drop Table %s", table)); }

bool CCartoma::PackTable(const std::string& table) {
  return DoBracketed(fk::Format("Pack Table %s Graphic Data", table));
}

bool CCartoma::CreateTable(const std::string& name, const std::string& columns, const char* file, const char* type) {
  std::string statement = fk::Format("Create Table %s ( %s )", name, columns);
  if (file) statement += std::string(" File \"") + file + "\"";
  if (type) statement += std::string(" Type") + type;
  return Succeeded(*this, statement);
}

bool CCartoma::AddColumn(const std::string& table, const std::string& column, const std::string& type) {
  CommitTable(table);  // its result doesn't count
  return DoBracketed(fk::Format("Alter Table %s (Add %s %s)", table, column, type));
}

bool CCartoma::SelectInto(const std::string& select, const std::string& table) {
  return Succeeded(*this, fk::Format("%s INTO %s NoSelect", select, table));
}

bool CCartoma::InsertRow(const std::string& table, const std::string& columns, const std::string& values) {
  return Succeeded(*this, fk::Format("Insert Into %s (%s) Values(%s)", table, columns, values));
}

bool CCartoma::UpdateColumn(const std::string& table, const std::string& column, const std::string& value,
                            const char* rowId) {
  std::string statement = fk::Format("Update %s Set %s = %s", table, column, value);
  if (rowId) statement += std::string(" Where RowID = ") + rowId;
  return Succeeded(*this, statement);
}

bool CCartoma::UpdateRow(const std::string& table, const std::string& column, const std::string& value, int row) {
  return UpdateColumn(table, column, value, fk::Format("%d", row + 1).c_str());
}

bool CCartoma::FetchRec(const std::string& table, long row) {
  return Succeeded(*this, fk::Format("Fetch Rec %ld From %s", row, table));
}

bool CCartoma::FetchRow(const std::string& table, long row) { return FetchRec(table, row + 1); }

bool CCartoma::SetFastEdit(const std::string& table, int on) {
  return Succeeded(*this, fk::Format(on ? "Set Table %s FastEdit On" : "Set Table %s FastEdit Off", table));
}

bool CCartoma::SetUndo(const std::string& table, int on) { return SetFastEdit(table, !on); }

bool CCartoma::RunApplication(const std::string& path) {
  return Succeeded(*this, fk::Format("Run Application \"%s\"", path));
}

bool CCartoma::SaveWorkspace(const std::string& path) {
  return Succeeded(*this, fk::Format("Save Workspace As \"%s\"", path));
}

bool CCartoma::MakeTableSubset(const std::string& keyTable, const std::string& source, const std::string& column,
                               const std::string& outFile, const char* orderExtra) {
  const std::string subset = "_TableSubset";
  CloseTable(subset);  // there may be none from an earlier run
  std::string select = fk::Format("SELECT * FROM %s WHERE %s IN (SELECT COL1 FROM %s) ORDER BY %s", source, column,
                                  keyTable, column);
  if (orderExtra) select += std::string(", ") + orderExtra;
  if (!SelectInto(select, subset)) return false;
  const bool committed = CommitTableAs(subset, outFile, nullptr, 0);
  CopyTabMetadata(GetTablePath(source), outFile);
  CloseTable(subset);
  return committed;
}
