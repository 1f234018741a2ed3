// The syntax tree of statements. Table names are kept as written; the
// executor resolves them (ignoring case) when it runs the statement.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "coordsys.h"
#include "syntax.h"
#include "table.h"

namespace sim {

// "Open Table "path" [As name] [Hide] [ReadOnly] [Interactive] [View Automatic]"
struct OpenTableStmt {
  ExprPtr path;
  std::string alias;
  bool hide = false;
  bool readOnly = false;
  bool viewAutomatic = false;
};
// "Close Table name" | "Close All"
struct CloseTableStmt {
  std::string table;  // empty: all tables
};
// "Commit Table name [As "path" [CoordSys clause]] [Interactive]"
struct CommitTableStmt {
  std::string table;
  ExprPtr path;
  std::optional<CoordSys> coordsys;
  bool interactive = false;
};
struct RollbackTableStmt {
  std::string table;
};
struct DropTableStmt {
  std::string table;
};
// "Pack Table name [Graphic] [Data]"
struct PackTableStmt {
  std::string table;
};
// "Create Table name ( column type, ... ) [File "path"] [Type word]"
struct CreateTableStmt {
  std::string name;
  std::vector<Column> columns;
  ExprPtr file;
};
// "Alter Table name ( Add column type, ... | Drop column, ... | Rename old new, ... )"
struct AlterAction {
  enum class Kind { Add, Drop, Rename } kind = Kind::Add;
  Column column;        // Add
  std::string name;     // Drop, Rename: the column
  std::string newName;  // Rename
};
struct AlterTableStmt {
  std::string table;
  std::vector<AlterAction> actions;
};
struct SelectStmt {
  SelectQuery query;
};
// "Insert Into name [(columns)] Values (values)" | "Insert Into name [(columns)] Select ..."
struct InsertStmt {
  std::string table;
  std::vector<std::string> columns;
  std::vector<ExprPtr> values;
  std::optional<SelectQuery> select;
};
// "Update name Set column = value, ... [Where condition]"
struct UpdateStmt {
  std::string table;
  std::vector<std::pair<std::string, ExprPtr>> assignments;
  ExprPtr where;
};
struct DeleteStmt {
  std::string table;
  ExprPtr where;
};
// "Fetch First|Last|Next|Prev|Rec n From name"
struct FetchStmt {
  enum class Where { First, Last, Next, Prev, Rec } where = Where::First;
  ExprPtr row;
  std::string table;
};
struct SetFastEditStmt {
  std::string table;
  bool on = false;
};
// "Set CoordSys clause" | "Set CoordSys Table name"
struct SetCoordSysStmt {
  std::optional<CoordSys> coordsys;
  std::string table;
};
struct SetProgressBarsStmt {
  bool on = true;
};
struct SetStyleStmt {
  ExprPtr style;
};
// "Dim a, b As type"
struct DimStmt {
  std::vector<std::string> names;
  std::string type;
};
// "name = value"
struct AssignStmt {
  std::string name;
  ExprPtr value;
};
// "Create Point|Line|Rect|RoundRect|Ellipse|Arc|Text|Pline|Region [Into Variable name] ..."
struct CreateObjectStmt {
  ObjectKind kind = ObjectKind::Point;
  std::string variable;
  std::vector<ExprPtr> numbers;                         // coordinates, then the kind's own numbers
  std::vector<int> partSizes;                           // Pline, Region: nodes of each part
  ExprPtr text;                                         // Text: the string
  std::vector<std::pair<std::string, ExprPtr>> styles;  // Pen, Brush, Symbol, Font
};
// "Alter Object name Info code, value"
struct AlterObjectStmt {
  std::string variable;
  ExprPtr code;
  ExprPtr value;
};
struct RunMenuCommandStmt {
  ExprPtr command;
};
struct RunApplicationStmt {
  ExprPtr path;
};
struct SaveWorkspaceStmt {
  ExprPtr path;
};
// "Metadata Table name SetKey key To value" | "... DropKey key"
struct MetadataStmt {
  std::string table;
  ExprPtr key;
  ExprPtr value;  // null: drop the key
};
// "Map From a, b"
struct MapFromStmt {
  std::vector<std::string> tables;
};
// "Add Map [Window n] Layer a, b"
struct AddMapLayerStmt {
  ExprPtr window;
  std::vector<std::string> tables;
};
// "Remove Map [Window n] Layer a, b"
struct RemoveMapLayerStmt {
  ExprPtr window;
  std::vector<std::string> tables;
};
// "Set Map [Window n] Layer (number|name) Editable|Selectable|Display On|Off"
struct SetMapLayerStmt {
  ExprPtr window;
  ExprPtr layer;
  std::string property;
  bool on = false;
};
struct BrowseStmt {
  std::string table;
};
struct CloseWindowStmt {
  ExprPtr window;
};
// "Set Window n Title "text"" | "Set Window n Printer setting ..."
struct SetWindowTitleStmt {
  ExprPtr window;
  ExprPtr title;
};
// Printer settings: "Default", "Name "text"", "Orientation Portrait|Landscape",
// "Copies n", "Papersize n", in any order.
struct SetWindowPrinterStmt {
  ExprPtr window;
  std::vector<std::pair<std::string, ExprPtr>> settings;  // upper-cased word, value or null
};
struct PrintStmt {
  ExprPtr value;
};

using Statement =
    std::variant<OpenTableStmt, CloseTableStmt, CommitTableStmt, RollbackTableStmt, DropTableStmt, PackTableStmt,
                 CreateTableStmt, AlterTableStmt, SelectStmt, InsertStmt, UpdateStmt, DeleteStmt, FetchStmt,
                 SetFastEditStmt, SetCoordSysStmt, SetProgressBarsStmt, SetStyleStmt, DimStmt, AssignStmt,
                 CreateObjectStmt, AlterObjectStmt, RunMenuCommandStmt, RunApplicationStmt, SaveWorkspaceStmt,
                 MetadataStmt, MapFromStmt, AddMapLayerStmt, RemoveMapLayerStmt, SetMapLayerStmt, BrowseStmt,
                 CloseWindowStmt, SetWindowTitleStmt, SetWindowPrinterStmt, PrintStmt>;

// Parses one statement; throws SyntaxError.
Statement ParseStatement(std::string_view text);

}  // namespace sim
