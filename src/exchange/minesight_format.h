// The MineSight string file: comma-separated text with no header, one line
// per node: the two coordinates, Z and the node's number within its object
// (1 begins an object), then each attribute as the host gives it, every
// field followed by a comma. Flip XY swaps the first two columns after
// the transform.
#pragma once

#include <string>

#include "exchange/node_export.h"

class CMineSightFormat : public NodeFileFormat {
 public:
  explicit CMineSightFormat(bool flipXY) : m_bFlipXY(flipXY) {}

  std::string ProgressText(const std::string& path, const std::string& table) const override;
  void WriteHead(fk::TextWriter&, const std::vector<std::string>&, const fk::DateTimeParts&) override {}
  void WriteNode(fk::TextWriter& file, const ExportNode& node, const std::vector<std::string>& values) override;

 private:
  bool m_bFlipXY;
  std::string m_strLine;  // the record being put together, kept for its room
};

int ExportMineSight(const NodeExportOptions& options, bool flipXY, std::string& message);
