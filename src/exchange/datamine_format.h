// The Datamine text exchange layout: a header with the field definitions,
// then one line per node of eight numeric fields, each left-justified in
// 12 characters with three decimals, and the attributes behind them, each
// cut or padded to 12. The row's record number (PVALUE) and the node's
// number (PTN) tell a reader which nodes make one object.
#pragma once

#include <string>

#include "exchange/node_export.h"

class CDatamineFormat : public NodeFileFormat {
 public:
  std::string ProgressText(const std::string& path, const std::string& table) const override;
  void WriteHead(fk::TextWriter& file, const std::vector<std::string>& attributes,
                 const fk::DateTimeParts& today) override;
  std::string AttributeField(const std::string& value) const override;
  void WriteNode(fk::TextWriter& file, const ExportNode& node, const std::vector<std::string>& values) override;

 private:
  std::string m_strLine;  // the record being put together, kept for its room
};

int ExportDatamine(const NodeExportOptions& options, std::string& message);
