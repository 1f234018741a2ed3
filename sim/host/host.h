// The emulated host: its open tables, windows, selection, object variables,
// current styles and coordinate system, running scripts and pickers, and
// the statement and expression interpreter over them. Do and Eval throw
// HostError or SyntaxError with a description a person can act on; a
// statement checks what it needs before it changes anything, so that after
// a failure the host goes on as before.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "catalog.h"
#include "coordsys.h"
#include "database.h"
#include "reprojection.h"
#include "scripts.h"
#include "statements.h"
#include "value.h"
#include "windows.h"

namespace sim {

// A row that bare column names refer to, while an Update or a selection
// works on it.
struct RowContext {
  Table* table = nullptr;
  std::int64_t row = 0;
};

// The current selection: a table of the selected rows, and the table they
// were selected from.
struct Selection {
  std::string queryTable;
  std::string baseTable;
};

class Host {
 public:
  Host();
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  void Do(const std::string& statement);
  std::string Eval(const std::string& expression);

  // ---- state, for the automation object, the tests and the command line
  Catalog& Tables() { return m_catalog; }
  Windows& Windowing() { return m_windows; }
  Scripts& RunningScripts() { return m_scripts; }
  const CoordSys& CurrentCoordSys() const { return *m_coordsys; }
  const Selection& CurrentSelection() const { return m_selection; }
  bool ProgressBarsOn() const { return m_bProgressBars; }
  const std::vector<std::string>& Printed() const { return m_printed; }
  // The text of the current pen, brush, symbol (or font symbol) or font.
  std::string CurrentStyle(StyleKind kind) const;
  // What the host's own dialog boxes will answer: the file the Open Table
  // box picks (menu command 102), the symbol and the pen the style boxes
  // pick (304 and 503). With none queued, a box is cancelled.
  void QueueOpenFile(const std::string& path) { m_openFiles.push_back(path); }
  void QueueSymbol(const std::string& style) { m_symbols.push_back(style); }
  void QueuePen(const std::string& style) { m_pens.push_back(style); }

  // ---- the interpreter's parts (each in its own file)
  Value Evaluate(const Expr& expr, const RowContext* row = nullptr);
  Value CallFunction(const Expr& call, const RowContext* row);
  // A table as expressions name it: by name (or "Selection"), by its
  // number, or 0 for the table opened or made last.
  Table& TableOf(const Expr& arg, const RowContext* row);
  Table* FindTable(const std::string& name);
  Table& RequireTable(const std::string& name);
  Reprojector& Projections() { return m_reprojector; }

 private:
  friend class StatementRunner;

  // Statements, by group (exec_tables.cpp, exec_rows.cpp, exec_objects.cpp, exec_session.cpp).
  void Run(const OpenTableStmt& s);
  void Run(const CloseTableStmt& s);
  void Run(const CommitTableStmt& s);
  void Run(const RollbackTableStmt& s);
  void Run(const DropTableStmt& s);
  void Run(const PackTableStmt& s);
  void Run(const CreateTableStmt& s);
  void Run(const AlterTableStmt& s);
  void Run(const MetadataStmt& s);
  void Run(const SelectStmt& s);
  void Run(const InsertStmt& s);
  void Run(const UpdateStmt& s);
  void Run(const DeleteStmt& s);
  void Run(const FetchStmt& s);
  void Run(const SetFastEditStmt& s);
  void Run(const SetCoordSysStmt& s);
  void Run(const SetProgressBarsStmt& s);
  void Run(const SetStyleStmt& s);
  void Run(const DimStmt& s);
  void Run(const AssignStmt& s);
  void Run(const CreateObjectStmt& s);
  void Run(const AlterObjectStmt& s);
  void Run(const RunMenuCommandStmt& s);
  void Run(const RunApplicationStmt& s);
  void Run(const SaveWorkspaceStmt& s);
  void Run(const MapFromStmt& s);
  void Run(const AddMapLayerStmt& s);
  void Run(const RemoveMapLayerStmt& s);
  void Run(const SetMapLayerStmt& s);
  void Run(const BrowseStmt& s);
  void Run(const CloseWindowStmt& s);
  void Run(const SetWindowTitleStmt& s);
  void Run(const SetWindowPrinterStmt& s);
  void Run(const PrintStmt& s);

  // Helpers shared by the statement groups.
  std::string TextOf(const ExprPtr& expr);
  long WindowOf(const ExprPtr& expr);
  Table& OpenTableFile(const std::string& path, const std::string& name);
  void SaveTable(Table& table, const std::string& path, const CoordSys& coordsys);
  void CloseTable(const std::string& name);
  // The rows a condition picks, in row order.
  std::vector<std::int64_t> RowsWhere(Table& table, const ExprPtr& where);
  Table& MakeQueryTable(const SelectQuery& query);
  void SetVariable(const std::string& name, Value value);
  Value ObjectValueOf(Table& table, std::int64_t row);
  Object ObjectFromValue(const Value& value, const Table& table);
  void MenuCommand(int command);

  Database m_db;  // before the catalog: tables drop their rows on the way out
  Catalog m_catalog;
  Windows m_windows;
  Scripts m_scripts;
  Reprojector m_reprojector;
  Selection m_selection;
  std::map<std::string, Value, NoCaseLess> m_variables;
  std::map<std::string, std::string, NoCaseLess> m_variableTypes;
  std::shared_ptr<const CoordSys> m_coordsys;
  Style m_pen = Style::DefaultPen();
  Style m_brush = Style::DefaultBrush();
  Style m_symbol = Style::DefaultSymbol();
  Style m_font = Style::DefaultFont();
  bool m_bProgressBars = true;
  int m_nQueryCount = 0;
  std::vector<std::string> m_printed;
  std::deque<std::string> m_openFiles;
  std::deque<std::string> m_symbols;
  std::deque<std::string> m_pens;
};

}  // namespace sim
