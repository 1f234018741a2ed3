#include "exchange/node_export.h"

#include "exchange/progress_step.h"
#include "host/cartoma.h"
#include "platform/text/number_parse.h"
#include "platform/text/string_table.h"

namespace {

constexpr unsigned IDS_COULD_NOT_CREATE_FILE = 2029;
constexpr unsigned IDS_COULD_NOT_LOAD_OBJECT = 2030;
constexpr unsigned IDS_SKIPPING_ROW = 2031;
constexpr unsigned IDS_EXPORT_PROGRESS = 2070;

// The host variable that holds the object of the fetched row.
constexpr const char* kObjectVariable = "_importObject";

// The row's Z: the default, or the Z column's value when it has one; a
// value that is not a number counts as 0.
double RowZ(const NodeExportOptions& options) {
  if (options.zColumn.empty()) return options.defaultZ;
  const std::string value = g_Cartoma.GetFieldValue(options.table, options.zColumn);
  return value.empty() ? options.defaultZ : fk::Atof(value);
}

void NoteSkippedRow(std::string& message, long record) {
  if (!message.empty()) message += "\n";
  message += fk::FormatString(IDS_SKIPPING_ROW, {static_cast<long long>(record)});
}

// The fetched row's object, node by node, with the row's attribute values
// and Z; false when the host gives the object no nodes.
bool WriteRowNodes(const NodeExportOptions& options, NodeFileFormat& format, fk::TextWriter& file, long record,
                   std::vector<std::string>& values) {
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = format.AttributeField(g_Cartoma.GetFieldValue(options.table, options.attributes[i]));
  const double z = RowZ(options) * options.multiplyZ + options.addZ;
  std::vector<double> xs, ys;
  if (!g_Cartoma.GetObjectNodes(kObjectVariable, xs, ys)) return false;
  for (std::size_t n = 0; n < xs.size(); ++n)
    format.WriteNode(file,
                     {record, static_cast<int>(n + 1), options.multiplyX * xs[n] + options.addX,
                      options.multiplyY * ys[n] + options.addY, z},
                     values);
  return true;
}

}  // namespace

int ExportTableNodes(const NodeExportOptions& options, NodeFileFormat& format, std::string& message) {
  message.clear();
  const fk::DateTimeParts today = fk::PartsFromOleDate(fk::CurrentOleDate()).value_or(fk::DateTimeParts{});
  CProgressWnd progress(fk::LoadString(IDS_EXPORT_PROGRESS));
  fk::TextWriter file;
  // An unreachable object says the same as a file that can't be made.
  if (!file.Open(options.path, "w") || !g_Cartoma.ObjectToVariable(kObjectVariable, options.table)) {
    message = fk::FormatString(IDS_COULD_NOT_CREATE_FILE, {options.path});
    return 0;
  }
  progress.SetText("%s", format.ProgressText(options.path, options.table));
  format.WriteHead(file, options.attributes, today);

  const int count = g_Cartoma.GetTableRowCount(options.table);
  progress.SetRange(0, count, 1);
  std::vector<std::string> values(options.attributes.size());
  for (long record = 1; record <= count; ++record) {
    if (CancelledAtStep(progress, message)) return 0;
    g_Cartoma.FetchRec(options.table, record);
    if (!g_Cartoma.ObjectToVariable(kObjectVariable, options.table)) {
      message = fk::LoadString(IDS_COULD_NOT_LOAD_OBJECT);
      return 0;
    }
    if (!WriteRowNodes(options, format, file, record, values)) NoteSkippedRow(message, record);
    if (file.Failed()) break;
  }
  // A file the disk could not take whole says what a file that can't be made says.
  if (!file.Close()) {
    message = fk::FormatString(IDS_COULD_NOT_CREATE_FILE, {options.path});
    return 0;
  }
  return 1;
}
