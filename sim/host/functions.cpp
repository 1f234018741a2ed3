// The host's functions, by name, ignoring case.
#include <cmath>
#include <filesystem>
#include <functional>
#include <map>

#include "errors.h"
#include "platform/paths/paths.h"
#include "host.h"
#include "text_util.h"

namespace sim {
namespace {

using Args = std::vector<ExprPtr>;

void Arity(const Expr& call, std::size_t count) {
  if (call.args.size() != count)
    throw HostError("Function " + call.text + " takes " + std::to_string(count) + " argument" +
                    (count == 1 ? "" : "s") + ", not " + std::to_string(call.args.size()));
}

Value Flag(bool value) { return Value(std::string(value ? "T" : "F")); }
Value Number(double value) { return Value(value); }

}  // namespace

// What each function does, by upper-cased name.
class FunctionTable {
 public:
  using Function = std::function<Value(Host&, const Expr&, const RowContext*)>;
  static const std::map<std::string, Function>& All();
};

namespace {

int Code(Host& host, const Expr& call, std::size_t index, const RowContext* row) {
  return static_cast<int>(host.Evaluate(*call.args.at(index), row).AsNumber("The code of " + call.text));
}

Value TableInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 2);
  Table& t = host.TableOf(*call.args[0], row);
  const int code = Code(host, call, 1, row);
  switch (code) {
    case 1: return Value(t.Name());
    case 3: return Number(static_cast<int>(t.m_type));
    case 4: return Number(static_cast<double>(t.Columns().size()));
    case 5: return Flag(t.m_bMappable);
    case 6: return Flag(t.m_bReadOnly);
    case 7: return Flag(t.m_bTemporary);
    case 8: return Number(static_cast<double>(t.RowCount()));
    case 19: return Value(t.m_strPath);
    case 29: return Value(t.m_bMappable ? t.m_coordsys.Clause() : std::string());
    case 30: return Value(t.m_bMappable ? t.m_coordsys.Name() : std::string());
    default: throw HostError("TableInfo has no code " + std::to_string(code));
  }
}

const Column& ColumnArg(Host& host, Table& table, const Expr& arg, const RowContext* row) {
  const std::string name = arg.kind == ExprKind::Name ? arg.text : host.Evaluate(arg, row).AsText();
  return table.Columns()[static_cast<std::size_t>(table.RequireColumn(name))];
}

Value ColumnInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 3);
  Table& t = host.TableOf(*call.args[0], row);
  const Column& column = ColumnArg(host, t, *call.args[1], row);
  const int code = Code(host, call, 2, row);
  switch (code) {
    case 1: return Value(column.name);
    case 2: return Number(t.ColumnIndex(column.name) + 1);
    case 3: return Number(static_cast<int>(column.type));
    case 4: return Number(column.width);
    case 5: return Number(column.decimals);
    default: throw HostError("ColumnInfo has no code " + std::to_string(code));
  }
}

long WindowArg(Host& host, const Expr& call, const RowContext* row) {
  return static_cast<long>(host.Evaluate(*call.args[0], row).AsNumber("The window of " + call.text));
}

Value WindowInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 2);
  const Window& w = host.Windowing().Require(WindowArg(host, call, row));
  const int code = Code(host, call, 1, row);
  switch (code) {
    case 1: return Value(w.title);
    case 3: return Number(w.type);
    case 13: return Number(static_cast<double>(w.id));
    default: throw HostError("WindowInfo has no code " + std::to_string(code));
  }
}

Value MapperInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 2);
  const Window& w = host.Windowing().RequireMapper(WindowArg(host, call, row));
  const int code = Code(host, call, 1, row);
  if (code == 9) return Number(static_cast<double>(w.layers.size()));
  throw HostError("MapperInfo has no code " + std::to_string(code));
}

Value LayerInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 3);
  const Window& w = host.Windowing().RequireMapper(WindowArg(host, call, row));
  const int layer = Code(host, call, 1, row);
  if (layer < 1 || layer > static_cast<int>(w.layers.size()))
    throw HostError("Map window " + std::to_string(w.id) + " has no layer " + std::to_string(layer));
  const Layer& l = w.layers[static_cast<std::size_t>(layer - 1)];
  const int code = Code(host, call, 2, row);
  switch (code) {
    case 1: return Value(l.table);
    case 4: return Flag(l.display);
    case 5: return Flag(l.selectable);
    case 6: return Flag(l.editable);
    case 24: {
      const Table* table = host.FindTable(l.table);
      return Number(table && table->m_type == TableType::Raster ? 4 : 0);
    }
    default: throw HostError("LayerInfo has no code " + std::to_string(code));
  }
}

Value SelectionInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 1);
  const Selection& s = host.CurrentSelection();
  const int code = Code(host, call, 0, row);
  const Table* table = host.FindTable("Selection");
  switch (code) {
    case 1: return Value(table ? s.baseTable : std::string());
    case 2: return Value(table ? s.queryTable : std::string());
    case 3: return Number(table ? static_cast<double>(table->RowIds().size()) : 0);
    default: throw HostError("SelectionInfo has no code " + std::to_string(code));
  }
}

// The object argument with its nodes in the host's current coordinate system.
Object ObjectArg(Host& host, const Expr& call, const RowContext* row) {
  const Value value = host.Evaluate(*call.args.at(0), row);
  const ObjectValue& object = value.AsObject("The first argument of " + call.text);
  return host.Projections().Convert(*object.object, *object.coordsys, host.CurrentCoordSys());
}

Value ObjectInfo(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 2);
  const Value value = host.Evaluate(*call.args[0], row);
  const Object& o = *value.AsObject("The first argument of ObjectInfo").object;
  const int code = Code(host, call, 1, row);
  switch (code) {
    case 1: return Number(static_cast<int>(o.kind));
    case 2: return Value(o.MainStyle() ? o.MainStyle()->Text() : std::string());
    case 3: return Value(o.brush ? o.brush->Text() : std::string());
    case 20: return Number(o.NodeCount());
    case 21: return Number(static_cast<double>(o.parts.size()));
    case 22: return Value(o.text);
    default: throw HostError("ObjectInfo has no code " + std::to_string(code));
  }
}

Value ObjectGeography(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 2);
  const Object o = ObjectArg(host, call, row);
  const int code = Code(host, call, 1, row);
  if (code == 5 || code == 6) return Number(code == 5 ? o.startAngle : o.endAngle);
  if (code < 1 || code > 4) throw HostError("ObjectGeography has no code " + std::to_string(code));
  if (o.kind == ObjectKind::Line || o.kind == ObjectKind::Point) {
    const Part& nodes = o.parts.at(0);
    const Node& n = code <= 2 ? nodes.front() : nodes.back();
    return Number(code % 2 == 1 ? n.x : n.y);
  }
  return Number(o.Bounds()[static_cast<std::size_t>(code - 1)]);
}

// Nodes are numbered over the whole object: part 2 of an object whose part 1
// has 4 nodes holds nodes 5 onwards. A node index outside the part asked
// for is an error, which is how a reader walking the nodes learns that the
// next part begins.
Value ObjectNode(Host& host, const Expr& call, const RowContext* row, bool wantX) {
  Arity(call, 3);
  const Object o = ObjectArg(host, call, row);
  const int part = Code(host, call, 1, row), node = Code(host, call, 2, row);
  if (part < 1 || part > static_cast<int>(o.parts.size()))
    throw HostError("The object has " + std::to_string(o.parts.size()) + " parts; there is no part " +
                    std::to_string(part));
  int first = 1;
  for (int p = 1; p < part; ++p) first += static_cast<int>(o.parts[static_cast<std::size_t>(p - 1)].size());
  const Part& nodes = o.parts[static_cast<std::size_t>(part - 1)];
  const int last = first + static_cast<int>(nodes.size()) - 1;
  if (node < first || node > last)
    throw HostError("Part " + std::to_string(part) + " of the object holds nodes " + std::to_string(first) + " to " +
                    std::to_string(last) + "; node " + std::to_string(node) + " is not in it");
  const Node& n = nodes[static_cast<std::size_t>(node - first)];
  return Number(wantX ? n.x : n.y);
}

Value GetMetadata(Host& host, const Expr& call, const RowContext* row) {
  Arity(call, 2);
  Table& t = host.TableOf(*call.args[0], row);
  const std::string key = host.Evaluate(*call.args[1], row).AsText();
  for (const auto& [k, v] : t.m_metadata)
    if (EqualNoCase(k, key)) return Value(v);
  return Value(std::string());
}

Value MakeStyle(Host& host, const Expr& call, const RowContext* row) {
  std::vector<Style::Field> fields;
  for (const ExprPtr& arg : call.args) {
    const Value value = host.Evaluate(*arg, row);
    if (value.IsText())
      fields.emplace_back(value.AsText());
    else
      fields.emplace_back(value.AsNumber("A style value"));
  }
  return Value(*ConstructStyle(call.text, fields));
}

std::string Text(Host& host, const Expr& call, std::size_t index, const RowContext* row) {
  return host.Evaluate(*call.args.at(index), row).AsText();
}

double Num(Host& host, const Expr& call, std::size_t index, const RowContext* row) {
  return host.Evaluate(*call.args.at(index), row)
      .AsNumber("Argument " + std::to_string(index + 1) + " of " + call.text);
}

}  // namespace

const std::map<std::string, FunctionTable::Function>& FunctionTable::All() {
  using H = Host;
  using E = Expr;
  using R = const RowContext*;
  static const std::map<std::string, Function> kFunctions = {
      {"NUMTABLES",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Number(static_cast<double>(h.Tables().Count()));
       }},
      {"NUMWINDOWS",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Number(static_cast<double>(h.Windowing().All().size()));
       }},
      {"FRONTWINDOW",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Number(static_cast<double>(h.Windowing().Front()));
       }},
      {"TABLEINFO", TableInfo},
      {"COLUMNINFO", ColumnInfo},
      {"NUMCOLS",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Number(static_cast<double>(h.TableOf(*c.args[0], r).Columns().size()));
       }},
      {"WINDOWINFO", WindowInfo},
      {"MAPPERINFO", MapperInfo},
      {"LAYERINFO", LayerInfo},
      {"SELECTIONINFO", SelectionInfo},
      {"OBJECTINFO", ObjectInfo},
      {"OBJECTGEOGRAPHY", ObjectGeography},
      {"OBJECTNODEX", [](H& h, const E& c, R r) { return ObjectNode(h, c, r, true); }},
      {"OBJECTNODEY", [](H& h, const E& c, R r) { return ObjectNode(h, c, r, false); }},
      {"PATHTOTABLENAME$",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Value(TableNameFromPath(Text(h, c, 0, r)));
       }},
      {"GETMETADATA$", GetMetadata},
      {"CURRENTSYMBOL",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Value(h.CurrentStyle(StyleKind::Symbol));
       }},
      {"CURRENTPEN",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Value(h.CurrentStyle(StyleKind::Pen));
       }},
      {"CURRENTBRUSH",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Value(h.CurrentStyle(StyleKind::Brush));
       }},
      {"CURRENTFONT",
       [](H& h, const E& c, R) {
         Arity(c, 0);
         return Value(h.CurrentStyle(StyleKind::Font));
       }},
      {"UCASE$",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Value(Upper(Text(h, c, 0, r)));
       }},
      {"LCASE$",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Value(Lower(Text(h, c, 0, r)));
       }},
      {"LEN",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Number(static_cast<double>(Text(h, c, 0, r).size()));
       }},
      {"LEFT$",
       [](H& h, const E& c, R r) {
         Arity(c, 2);
         return Value(Text(h, c, 0, r).substr(0, static_cast<std::size_t>(std::max(0.0, Num(h, c, 1, r)))));
       }},
      {"STR$",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Value(Text(h, c, 0, r));
       }},
      {"VAL",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Number(std::atof(Text(h, c, 0, r).c_str()));
       }},
      {"INT",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Number(std::floor(Num(h, c, 0, r)));
       }},
      {"ABS",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Number(std::fabs(Num(h, c, 0, r)));
       }},
      {"FILEEXISTS",
       [](H& h, const E& c, R r) {
         Arity(c, 1);
         return Flag(std::filesystem::exists(fk::Native(Text(h, c, 0, r))));
       }},
  };
  return kFunctions;
}

Value Host::CallFunction(const Expr& call, const RowContext* row) {
  const std::string name = Upper(call.text);
  static const char* kStyleWords[] = {"MAKEPEN", "MAKEBRUSH", "MAKESYMBOL", "MAKEFONTSYMBOL", "MAKEFONT", "PEN",
                                      "BRUSH",   "SYMBOL",    "FONT"};
  for (const char* word : kStyleWords)
    if (name == word) return MakeStyle(*this, call, row);
  const auto& functions = FunctionTable::All();
  const auto it = functions.find(name);
  if (it == functions.end()) throw HostError("Unknown function " + call.text);
  return it->second(*this, call, row);
}

}  // namespace sim
