#include "exchange/datamine_format.h"

#include <array>

#include "platform/text/format.h"
#include "platform/text/letter_case.h"
#include "platform/text/number_format.h"
#include "platform/text/string_table.h"

namespace {

constexpr unsigned IDS_EXPORTING_DATAMINE = 2032;
constexpr std::size_t kFieldWidth = 12;
constexpr std::size_t kNameWidth = 8;
constexpr int kFirstAttributeField = 9;

// The eight numeric fields, each with its definition's tail: the default.
constexpr std::array<const char*, 8> kNumericFields = {
    "PVALUE   N   1   %d          0.000000E+00\n", "PTN      N   1   %d          0.000000E+00\n",
    "XP       N   1   %d          0.000000E+00\n", "YP       N   1   %d          0.000000E+00\n",
    "ZP       N   1   %d          0.000000E+00\n", "COLOUR   N   1   %d         -0.100000E+31\n",
    "SYMBOL   N   1   %d         -0.100000E+31\n", "LSTYLE   N   1   %d         -0.100000E+31\n"};

// Every node of every object gets these.
constexpr double kColour = 1.0, kSymbol = 201.0, kLineStyle = 1001.0;

// `text` cut to `width`, or padded with blanks on the right to it.
std::string FixedWidth(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

// "%-12.3lf": at least 12 characters; a wider number is never cut.
void AppendNumber(std::string& line, double value) {
  char buffer[fk::kNumberChars];
  const std::string_view text = fk::FormatFixed(buffer, value, 3);
  line.append(text);
  if (text.size() < kFieldWidth) line.append(kFieldWidth - text.size(), ' ');
}

// "%d/%m/%y": day, month and the year in the century, two digits each.
std::string DateText(const fk::DateTimeParts& date) {
  return fk::Format("%02d/%02d/%02d", date.day, date.month, date.year % 100);
}

}  // namespace

std::string CDatamineFormat::ProgressText(const std::string& path, const std::string& table) const {
  return fk::FormatString(IDS_EXPORTING_DATAMINE, {path, table});
}

void CDatamineFormat::WriteHead(fk::TextWriter& file, const std::vector<std::string>& attributes,
                                const fk::DateTimeParts& today) {
  file.Write("IN      \n");
  file.Write(fk::Format("FILE CREATED BY SYSTEM   USING  DATAMINE ON %s            \n", DateText(today)));
  file.Write("       9       9\n");  // the same whatever the number of attributes
  for (std::size_t i = 0; i < kNumericFields.size(); ++i)
    file.Write(fk::Format(kNumericFields[i], static_cast<int>(i + 1)));
  for (std::size_t i = 0; i < attributes.size(); ++i)
    file.Write(fk::Format("%s A   1   %d                      \n", FixedWidth(fk::ToUpper(attributes[i]), kNameWidth),
                          kFirstAttributeField + static_cast<int>(i)));
}

std::string CDatamineFormat::AttributeField(const std::string& value) const { return FixedWidth(value, kFieldWidth); }

void CDatamineFormat::WriteNode(fk::TextWriter& file, const ExportNode& node, const std::vector<std::string>& values) {
  m_strLine.clear();
  for (double value : {static_cast<double>(node.record), static_cast<double>(node.number), node.x, node.y, node.z,
                       kColour, kSymbol, kLineStyle})
    AppendNumber(m_strLine, value);
  for (const std::string& value : values) m_strLine += value;
  m_strLine += '\n';
  file.Write(m_strLine);
}

int ExportDatamine(const NodeExportOptions& options, std::string& message) {
  CDatamineFormat format;
  return ExportTableNodes(options, format, message);
}
