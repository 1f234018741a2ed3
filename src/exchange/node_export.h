// The walk that the Datamine and MineSight exports share: every row of a
// host table, its object turned into nodes by the host session, one record
// per node, under a progress window whose Cancel ends the export. What a
// record looks like is the file format's.
#pragma once

#include <string>
#include <vector>

#include "platform/text/ole_date.h"
#include "platform/text/text_writer.h"

// What the user chose: the table, the file, where Z comes from, the
// attribute columns and the linear transform of the coordinates.
struct NodeExportOptions {
  std::string table;
  std::string path;
  std::string zColumn;  // none when empty: every node gets defaultZ
  double defaultZ = 0.0;
  std::vector<std::string> attributes;
  double multiplyX = 1.0, multiplyY = 1.0, multiplyZ = 1.0;
  double addX = 0.0, addY = 0.0, addZ = 0.0;
};

// One node of a row's object, transformed.
struct ExportNode {
  long record;  // the row's record number, from 1
  int number;   // the node's number within its object, from 1
  double x, y, z;
};

class NodeFileFormat {
 public:
  virtual ~NodeFileFormat() = default;
  // The progress window's text.
  virtual std::string ProgressText(const std::string& path, const std::string& table) const = 0;
  // What stands in front of the first record; `today` is the export's clock.
  virtual void WriteHead(fk::TextWriter& file, const std::vector<std::string>& attributes,
                         const fk::DateTimeParts& today) = 0;
  // An attribute value as the records carry it.
  virtual std::string AttributeField(const std::string& value) const { return value; }
  virtual void WriteNode(fk::TextWriter& file, const ExportNode& node, const std::vector<std::string>& values) = 0;
};

// Writes the file: 1 when the walk reached the end, with the skipped rows
// listed in `message` (empty when none was skipped); 0 with the one error
// message. A file that was begun stays on disk as far as it got.
int ExportTableNodes(const NodeExportOptions& options, NodeFileFormat& format, std::string& message);
