// The catalogue of tables and columns: one expression each, answers
// converted by the C runtime's rules.
#include "host/cartoma.h"
#include "platform/text/format.h"
#include "platform/text/letter_case.h"
#include "platform/text/number_parse.h"

namespace {
constexpr int TAB_INFO_NAME = 1;
constexpr int TAB_INFO_TYPE = 3;
constexpr int TAB_INFO_NCOLS = 4;
constexpr int TAB_INFO_MAPPABLE = 5;
constexpr int TAB_INFO_TEMP = 7;
constexpr int TAB_INFO_NROWS = 8;
constexpr int TAB_INFO_TABFILE = 19;
constexpr int TAB_INFO_COORDSYS_CLAUSE = 29;
constexpr int TAB_INFO_COORDSYS_NAME = 30;
constexpr int COL_INFO_NAME = 1;
constexpr int COL_INFO_TYPE = 3;
// Table types that hold no vector objects.
constexpr long TABLE_TYPE_RASTER = 4;
constexpr long TABLE_TYPE_NON_VECTOR = 9;
}  // namespace

int CCartoma::GetTableNames(std::vector<std::string>& names) {
  const long count = fk::Atol(Eval("NumTables()"));
  for (long i = 1; i <= count; ++i) names.push_back(Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_NAME)));
  return static_cast<int>(count);
}

int CCartoma::ListTableNames(std::vector<std::string>* names) {
  const long count = fk::Atol(Eval("NumTables()"));
  if (names)
    for (long i = 1; i <= count; ++i) names->push_back(Eval(fk::Format("TableInfo(%d, %ld)", i, TAB_INFO_NAME)));
  return static_cast<int>(count);
}

int CCartoma::GetMappableTableNames(std::vector<std::string>& names) {
  const long count = fk::Atol(Eval("NumTables()"));
  for (long i = 1; i <= count; ++i) {
    if (Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_MAPPABLE)) != "T") continue;
    names.push_back(Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_NAME)));
  }
  return static_cast<int>(count);
}

int CCartoma::GetVectorTableNames(std::vector<std::string>& names) {
  const long count = fk::Atol(Eval("NumTables()"));
  for (long i = 1; i <= count; ++i) {
    if (Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_MAPPABLE)) != "T") continue;
    const long type = fk::Atol(Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_TYPE)));
    if (type == TABLE_TYPE_RASTER || type == TABLE_TYPE_NON_VECTOR) continue;
    names.push_back(Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_NAME)));
  }
  return static_cast<int>(count);
}

std::string CCartoma::FindTableByPath(const std::string& path) {
  const long count = fk::Atol(Eval("NumTables()"));
  for (long i = 1; i <= count; ++i) {
    const std::string name = Eval(fk::Format("TableInfo(%ld, %d)", i, TAB_INFO_NAME));
    if (fk::EqualsNoCase(GetTablePath(name), path)) return name;
  }
  return {};
}

int CCartoma::GetColumnNames(const std::string& table, std::vector<std::string>& names, int typeFilter) {
  const int count = fk::Atoi(Eval(fk::Format("TableInfo(%s, %d)", table, TAB_INFO_NCOLS)));
  for (int i = 1; i <= count; ++i) {
    const std::string column = fk::Format("COL%d", i);
    if (typeFilter != 0 &&
        fk::Atoi(Eval(fk::Format("ColumnInfo(%s, %s, %d)", table, column, COL_INFO_TYPE))) != typeFilter)
      continue;
    names.push_back(Eval(fk::Format("ColumnInfo(%s, %s, %d)", table, column, COL_INFO_NAME)));
  }
  return count;
}

int CCartoma::ColumnExists(const std::string& table, const std::string& column) {
  std::vector<std::string> names;
  GetColumnNames(table, names, 0);
  for (const std::string& name : names)
    if (name == column) return 1;
  return 0;
}

int CCartoma::GetTableRowCount(const std::string& table) {
  return fk::Atoi(Eval(fk::Format("TableInfo(%s, %ld)", table, TAB_INFO_NROWS)));
}

long CCartoma::GetTableType(const std::string& table) {
  return fk::Atol(Eval(fk::Format("TableInfo(%s, %ld)", table, TAB_INFO_TYPE)));
}

std::string CCartoma::GetTablePath(const std::string& table) {
  return Eval(fk::Format("TableInfo(%s, %ld)", table, TAB_INFO_TABFILE));
}

int CCartoma::IsGridRasterTab(const std::string& table) { return IsGridRasterTabFile(GetTablePath(table)); }

std::string CCartoma::GetTableCoordSysName(const std::string& table) {
  return Eval(fk::Format("TableInfo(%s, %ld)", table, TAB_INFO_COORDSYS_NAME));
}

std::string CCartoma::GetTableCoordSysClause(const std::string& table) {
  return Eval(fk::Format("TableInfo(%s, %ld)", table, TAB_INFO_COORDSYS_CLAUSE));
}

bool CCartoma::IsTempTable(const std::string& table) {
  return Eval(fk::Format("TableInfo(\"%s\", %d)", table, TAB_INFO_TEMP)) == "T";
}

std::string CCartoma::GetSelectedTableName() { return Eval(fk::Format("TableInfo(0, %ld)", TAB_INFO_NAME)); }

std::string CCartoma::PathToTableName(const std::string& path) {
  return Eval(fk::Format("PathToTableName$(\"%s\")", path));
}

std::string CCartoma::GetMetadata(const std::string& table, const std::string& key) {
  int error = 0;  // asked for, and not looked at: a missing key reads as empty
  return Eval(fk::Format("GetMetadata$(%s, \"%s\")", table, key), &error);
}

std::string CCartoma::GetFieldValue(const std::string& table, const std::string& column) {
  int error = 0;
  return Eval(fk::Format("%s.%s", table, column), &error);
}
