// The grammar of statements: one function for each first word, each
// reading the statement's clauses in their order.
#include "errors.h"
#include "expression_parser.h"
#include "statements.h"
#include "text_util.h"

namespace sim {
namespace {

bool OnOff(TokenStream& t) {
  if (t.Accept("On")) return true;
  if (t.Accept("Off")) return false;
  t.Fail("expected On or Off");
}

std::vector<std::string> TableList(TokenStream& t) {
  std::vector<std::string> tables;
  do tables.push_back(t.ExpectTableName());
  while (t.AcceptSign(","));
  return tables;
}

Column ColumnDefinition(TokenStream& t) {
  Column column;
  column.name = t.ExpectName("a column name");
  const std::string type = t.ExpectName("a column type");
  try {
    column.type = ColumnTypeByName(type);
  } catch (const HostError&) {
    t.Fail("unknown column type " + type);
  }
  if (t.AcceptSign("(")) {
    column.width = static_cast<int>(t.ExpectNumber("a column width"));
    if (t.AcceptSign(",")) column.decimals = static_cast<int>(t.ExpectNumber("decimals"));
    t.ExpectSign(")");
  }
  if (column.type == ColumnType::Char && column.width <= 0) t.Fail("a Char column needs a width, Char (n)");
  if (column.type == ColumnType::Decimal && column.width <= 0)
    t.Fail("a Decimal column needs Decimal (width, decimals)");
  return column;
}

ExprPtr WindowClause(TokenStream& t) { return t.Accept("Window") ? ParseExpression(t) : nullptr; }

Statement ParseOpen(TokenStream& t) {
  t.Expect("Table");
  OpenTableStmt s;
  s.path = ParseExpression(t);
  if (t.Accept("As")) s.alias = t.ExpectName("a table name after As");
  while (!t.AtEnd()) {
    if (t.Accept("Hide"))
      s.hide = true;
    else if (t.Accept("ReadOnly"))
      s.readOnly = true;
    else if (t.Accept("Interactive"))
      continue;
    else if (t.Accept("View")) {
      t.Expect("Automatic");
      s.viewAutomatic = true;
    } else
      t.Fail("expected Hide, ReadOnly, Interactive or View Automatic");
  }
  return s;
}

Statement ParseClose(TokenStream& t) {
  if (t.Accept("All")) return CloseTableStmt{};
  if (t.Accept("Window")) return CloseWindowStmt{ParseExpression(t)};
  t.Expect("Table");
  return CloseTableStmt{t.ExpectTableName()};
}

Statement ParseCommit(TokenStream& t) {
  t.Expect("Table");
  CommitTableStmt s;
  s.table = t.ExpectTableName();
  if (t.Accept("As")) {
    s.path = ParseExpression(t);
    if (t.Accept("Type")) t.ExpectName("a table type");
    if (t.Accept("CoordSys")) s.coordsys = ParseCoordSysClause(t);
  }
  if (t.Accept("Interactive")) s.interactive = true;
  return s;
}

Statement ParsePack(TokenStream& t) {
  t.Expect("Table");
  PackTableStmt s{t.ExpectTableName()};
  bool any = false;
  while (t.Accept("Graphic") || t.Accept("Data")) any = true;
  if (!any) t.Fail("expected Graphic or Data");
  return s;
}

Statement ParseCreateTable(TokenStream& t) {
  CreateTableStmt s;
  s.name = t.ExpectName("a table name");
  t.ExpectSign("(");
  do s.columns.push_back(ColumnDefinition(t));
  while (t.AcceptSign(","));
  t.ExpectSign(")");
  if (t.Accept("File")) s.file = ParseExpression(t);
  if (t.Accept("Type")) t.ExpectName("a table type");
  return s;
}

void AlterClauses(TokenStream& t, AlterTableStmt& s) {
  while (!t.Peek().IsSign(")")) {
    AlterAction action;
    if (t.Accept("Add")) {
      action.kind = AlterAction::Kind::Add;
      action.column = ColumnDefinition(t);
    } else if (t.Accept("Drop")) {
      action.kind = AlterAction::Kind::Drop;
      action.name = t.ExpectName("a column name");
    } else if (t.Accept("Rename")) {
      action.kind = AlterAction::Kind::Rename;
      action.name = t.ExpectName("a column name");
      action.newName = t.ExpectName("the new column name");
    } else if (!s.actions.empty() && s.actions.back().kind == AlterAction::Kind::Add) {
      action.column = ColumnDefinition(t);  // a further column of the same Add
    } else {
      t.Fail("expected Add, Drop or Rename");
    }
    s.actions.push_back(std::move(action));
    const bool nextClause = t.Peek().Is("Add") || t.Peek().Is("Drop") || t.Peek().Is("Rename");
    if (!t.AcceptSign(",") && !nextClause) break;
  }
}

Statement ParseAlter(TokenStream& t) {
  if (t.Accept("Object")) {
    AlterObjectStmt s;
    s.variable = t.ExpectName("an object variable");
    t.Expect("Info");
    s.code = ParseExpression(t);
    t.ExpectSign(",");
    s.value = ParseExpression(t);
    return s;
  }
  t.Expect("Table");
  AlterTableStmt s;
  s.table = t.ExpectTableName();
  t.ExpectSign("(");
  AlterClauses(t, s);
  t.ExpectSign(")");
  return s;
}

std::vector<std::string> NameList(TokenStream& t) {
  std::vector<std::string> names;
  do names.push_back(t.ExpectName("a column name"));
  while (t.AcceptSign(","));
  return names;
}

Statement ParseInsert(TokenStream& t) {
  t.Expect("Into");
  InsertStmt s;
  s.table = t.ExpectTableName();
  if (t.AcceptSign("(")) {
    s.columns = NameList(t);
    t.ExpectSign(")");
  }
  if (t.Peek().Is("Select")) {
    s.select = ParseSelect(t);
    return s;
  }
  t.Expect("Values");
  t.ExpectSign("(");
  do s.values.push_back(ParseExpression(t));
  while (t.AcceptSign(","));
  t.ExpectSign(")");
  return s;
}

Statement ParseUpdate(TokenStream& t) {
  UpdateStmt s;
  s.table = t.ExpectTableName();
  t.Expect("Set");
  do {
    std::string column = t.ExpectName("a column name");
    t.ExpectSign("=");
    s.assignments.emplace_back(std::move(column), ParseExpression(t));
  } while (t.AcceptSign(","));
  if (t.Accept("Where")) s.where = ParseExpression(t);
  return s;
}

Statement ParseDelete(TokenStream& t) {
  t.Accept("Object");
  t.Expect("From");
  DeleteStmt s;
  s.table = t.ExpectTableName();
  if (t.Accept("Where")) s.where = ParseExpression(t);
  return s;
}

Statement ParseFetch(TokenStream& t) {
  FetchStmt s;
  if (t.Accept("First"))
    s.where = FetchStmt::Where::First;
  else if (t.Accept("Last"))
    s.where = FetchStmt::Where::Last;
  else if (t.Accept("Next"))
    s.where = FetchStmt::Where::Next;
  else if (t.Accept("Prev"))
    s.where = FetchStmt::Where::Prev;
  else if (t.Accept("Rec")) {
    s.where = FetchStmt::Where::Rec;
    s.row = ParseExpression(t);
  } else
    t.Fail("expected First, Last, Next, Prev or Rec");
  t.Expect("From");
  s.table = t.ExpectTableName();
  return s;
}

Statement ParseSetMap(TokenStream& t) {
  SetMapLayerStmt s;
  s.window = WindowClause(t);
  t.Expect("Layer");
  s.layer = ParseExpression(t);
  if (t.Peek().kind != TokenKind::Name) t.Fail("expected Editable, Selectable or Display");
  s.property = Upper(t.Take().text);
  if (s.property != "EDITABLE" && s.property != "SELECTABLE" && s.property != "DISPLAY")
    t.Fail("expected Editable, Selectable or Display");
  s.on = t.AtEnd() || OnOff(t);  // the bare word, as workspaces write it, is On
  return s;
}

// The window's place and size on the screen, which the emulator has no use
// for: Position (x, y), Width w, Height h, each with its own Units "name".
void SkipWindowGeometry(TokenStream& t) {
  while (!t.AtEnd()) {
    if (t.Accept("Position")) {
      t.ExpectSign("(");
      ParseExpression(t);
      t.ExpectSign(",");
      ParseExpression(t);
      t.ExpectSign(")");
    } else if (t.Accept("Width") || t.Accept("Height")) {
      ParseExpression(t);
    } else {
      t.Fail("expected Position, Width or Height");
    }
    if (t.Accept("Units")) t.ExpectText("a unit name in quotes");
  }
}

Statement ParsePrinter(TokenStream& t, ExprPtr window) {
  SetWindowPrinterStmt s{std::move(window), {}};
  while (!t.AtEnd()) {
    const std::string word = Upper(t.ExpectName("a printer setting"));
    if (word == "DEFAULT") {
      s.settings.emplace_back(word, nullptr);
    } else if (word == "ORIENTATION") {
      if (!t.Peek().Is("Portrait") && !t.Peek().Is("Landscape")) t.Fail("expected Portrait or Landscape");
      Expr value;
      value.kind = ExprKind::Text;
      value.text = t.Take().text;
      s.settings.emplace_back(word, std::make_shared<const Expr>(value));
    } else if (word == "NAME" || word == "COPIES" || word == "PAPERSIZE") {
      s.settings.emplace_back(word, ParseExpression(t));
    } else {
      t.Fail("unknown printer setting " + word);
    }
  }
  return s;
}

Statement ParseSetWindow(TokenStream& t) {
  ExprPtr window = ParseExpression(t);
  if (t.Accept("Printer")) return ParsePrinter(t, window);
  t.Expect("Title");
  return SetWindowTitleStmt{window, ParseExpression(t)};
}

Statement ParseSet(TokenStream& t) {
  if (t.Accept("Table")) {
    SetFastEditStmt s;
    s.table = t.ExpectTableName();
    t.Expect("FastEdit");
    s.on = OnOff(t);
    if (t.Accept("Undo")) OnOff(t);
    return s;
  }
  if (t.Accept("CoordSys")) {
    SetCoordSysStmt s;
    if (t.Accept("Table"))
      s.table = t.ExpectTableName();
    else
      s.coordsys = ParseCoordSysClause(t);
    return s;
  }
  if (t.Accept("ProgressBars")) return SetProgressBarsStmt{OnOff(t)};
  if (t.Accept("Style")) return SetStyleStmt{ParseExpression(t)};
  if (t.Accept("Map")) return ParseSetMap(t);
  if (t.Accept("Window")) return ParseSetWindow(t);
  t.Fail("expected Table, CoordSys, ProgressBars, Style, Map or Window after Set");
}

Statement ParseDim(TokenStream& t) {
  DimStmt s;
  s.names = NameList(t);
  t.Expect("As");
  s.type = t.ExpectName("a type");
  return s;
}

void Pair(TokenStream& t, CreateObjectStmt& s) {
  t.ExpectSign("(");
  s.numbers.push_back(ParseExpression(t));
  t.ExpectSign(",");
  s.numbers.push_back(ParseExpression(t));
  t.ExpectSign(")");
}

void Nodes(TokenStream& t, CreateObjectStmt& s) {
  const int count = static_cast<int>(t.ExpectNumber("a number of nodes"));
  if (count < 1) t.Fail("a part needs at least one node");
  for (int i = 0; i < count; ++i) Pair(t, s);
  s.partSizes.push_back(count);
}

ObjectKind KindWord(TokenStream& t) {
  static const std::pair<const char*, ObjectKind> kKinds[] = {
      {"Point", ObjectKind::Point},     {"Line", ObjectKind::Line},      {"Pline", ObjectKind::Polyline},
      {"Region", ObjectKind::Region},   {"Rect", ObjectKind::Rectangle}, {"RoundRect", ObjectKind::RoundedRectangle},
      {"Ellipse", ObjectKind::Ellipse}, {"Arc", ObjectKind::Arc},        {"Text", ObjectKind::Text}};
  for (const auto& [word, kind] : kKinds)
    if (t.Accept(word)) return kind;
  t.Fail("expected Point, Line, Pline, Region, Rect, RoundRect, Ellipse, Arc or Text");
}

void ObjectShape(TokenStream& t, CreateObjectStmt& s) {
  switch (s.kind) {
    case ObjectKind::Point: Pair(t, s); break;
    case ObjectKind::Polyline: {
      const int sections = t.Accept("Multiple") ? static_cast<int>(t.ExpectNumber("a number of sections")) : 1;
      for (int i = 0; i < sections; ++i) Nodes(t, s);
      break;
    }
    case ObjectKind::Region: {
      const int rings = static_cast<int>(t.ExpectNumber("a number of rings"));
      for (int i = 0; i < rings; ++i) Nodes(t, s);
      break;
    }
    case ObjectKind::Text:
      s.text = ParseExpression(t);
      Pair(t, s);
      Pair(t, s);
      break;
    default:
      Pair(t, s);
      Pair(t, s);
      if (s.kind == ObjectKind::RoundedRectangle) s.numbers.push_back(ParseExpression(t));
      if (s.kind == ObjectKind::Arc) {
        s.numbers.push_back(ParseExpression(t));
        s.numbers.push_back(ParseExpression(t));
      }
  }
}

Statement ParseCreateObject(TokenStream& t) {
  CreateObjectStmt s;
  s.kind = KindWord(t);
  t.Expect("Into");
  t.Expect("Variable");
  s.variable = t.ExpectName("a variable name");
  ObjectShape(t, s);
  while (t.Peek().Is("Pen") || t.Peek().Is("Brush") || t.Peek().Is("Symbol") || t.Peek().Is("Font")) {
    std::string word = Upper(t.Take().text);
    s.styles.emplace_back(std::move(word), ParseExpression(t));
  }
  return s;
}

Statement ParseCreate(TokenStream& t) {
  if (t.Accept("Table")) return ParseCreateTable(t);
  return ParseCreateObject(t);
}

Statement ParseRun(TokenStream& t) {
  if (t.Accept("Menu")) {
    t.Expect("Command");
    t.Accept("ID");
    return RunMenuCommandStmt{ParseExpression(t)};
  }
  t.Expect("Application");
  return RunApplicationStmt{ParseExpression(t)};
}

Statement ParseMetadata(TokenStream& t) {
  t.Expect("Table");
  MetadataStmt s;
  s.table = t.ExpectTableName();
  if (t.Accept("SetKey")) {
    s.key = ParseExpression(t);
    t.Expect("To");
    s.value = ParseExpression(t);
  } else if (t.Accept("DropKey")) {
    s.key = ParseExpression(t);
  } else {
    t.Fail("expected SetKey or DropKey");
  }
  return s;
}

Statement ParseMapLayers(TokenStream& t, bool add) {
  t.Expect("Map");
  ExprPtr window = WindowClause(t);
  t.Expect("Layer");
  std::vector<std::string> tables = TableList(t);
  if (add) return AddMapLayerStmt{window, tables};
  return RemoveMapLayerStmt{window, tables};
}

Statement ParseFirstWord(TokenStream& t) {
  const Token& first = t.Peek();
  if (first.kind == TokenKind::Name && t.Peek(1).IsSign("=")) {
    AssignStmt s{t.Take().text, nullptr};
    t.ExpectSign("=");
    s.value = ParseExpression(t);
    return s;
  }
  if (first.Is("Select")) return SelectStmt{ParseSelect(t)};
  const std::string word = Upper(t.ExpectName("a statement"));
  if (word == "OPEN") return ParseOpen(t);
  if (word == "CLOSE") return ParseClose(t);
  if (word == "COMMIT") return ParseCommit(t);
  if (word == "ROLLBACK") {
    t.Expect("Table");
    return RollbackTableStmt{t.ExpectTableName()};
  }
  if (word == "DROP") {
    t.Expect("Table");
    return DropTableStmt{t.ExpectTableName()};
  }
  if (word == "PACK") return ParsePack(t);
  if (word == "CREATE") return ParseCreate(t);
  if (word == "ALTER") return ParseAlter(t);
  if (word == "INSERT") return ParseInsert(t);
  if (word == "UPDATE") return ParseUpdate(t);
  if (word == "DELETE") return ParseDelete(t);
  if (word == "FETCH") return ParseFetch(t);
  if (word == "SET") return ParseSet(t);
  if (word == "DIM") return ParseDim(t);
  if (word == "RUN") return ParseRun(t);
  if (word == "SAVE") {
    t.Expect("Workspace");
    t.Expect("As");
    return SaveWorkspaceStmt{ParseExpression(t)};
  }
  if (word == "METADATA") return ParseMetadata(t);
  if (word == "MAP") {
    t.Expect("From");
    MapFromStmt map{TableList(t)};
    SkipWindowGeometry(t);
    return map;
  }
  if (word == "ADD") return ParseMapLayers(t, true);
  if (word == "REMOVE") return ParseMapLayers(t, false);
  if (word == "BROWSE") {
    t.ExpectSign("*");
    t.Expect("From");
    return BrowseStmt{t.ExpectTableName()};
  }
  if (word == "PRINT" || word == "NOTE") return PrintStmt{ParseExpression(t)};
  throw SyntaxError("Syntax error near '" + std::string(t.Source().substr(first.offset, 40)) + "': unknown statement " +
                    first.text);
}

}  // namespace

Statement ParseStatement(std::string_view text) {
  TokenStream tokens(text);
  if (tokens.AtEnd()) throw SyntaxError("Syntax error: the statement is empty");
  Statement statement = ParseFirstWord(tokens);
  tokens.ExpectEnd();
  return statement;
}

}  // namespace sim
