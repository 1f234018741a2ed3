#include "exchange/minesight_format.h"

#include "platform/text/number_format.h"
#include "platform/text/string_table.h"

namespace {

constexpr unsigned IDS_EXPORTING_MINESIGHT = 2033;

// "%lf,": six decimals, no width.
void AppendCoordinate(std::string& line, double value) {
  char buffer[fk::kNumberChars];
  line.append(fk::FormatFixed(buffer, value, 6));
  line += ',';
}

}  // namespace

std::string CMineSightFormat::ProgressText(const std::string& path, const std::string& table) const {
  return fk::FormatString(IDS_EXPORTING_MINESIGHT, {path, table});
}

void CMineSightFormat::WriteNode(fk::TextWriter& file, const ExportNode& node,
                                 const std::vector<std::string>& values) {
  m_strLine.clear();
  AppendCoordinate(m_strLine, m_bFlipXY ? node.y : node.x);
  AppendCoordinate(m_strLine, m_bFlipXY ? node.x : node.y);
  AppendCoordinate(m_strLine, node.z);
  char buffer[fk::kNumberChars];
  m_strLine.append(fk::FormatDecimal(buffer, node.number));
  m_strLine += ',';
  for (const std::string& value : values) {
    m_strLine += value;
    m_strLine += ',';
  }
  m_strLine += '\n';
  file.Write(m_strLine);
}

int ExportMineSight(const NodeExportOptions& options, bool flipXY, std::string& message) {
  CMineSightFormat format(flipXY);
  return ExportTableNodes(options, format, message);
}
