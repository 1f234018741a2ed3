// Object colours to attribute columns and back, row by row, over the host
// session that an earlier export connected. Storing writes each object's
// colour into integer columns (whole, with bytes 0 and 2 exchanged, or one
// byte per column); applying recolours each object from the columns, each
// colour byte scaled by its factor.
#pragma once

#include <string>

struct ColorObjectsRequest {
  std::string table;       // the source table
  std::string outputPath;  // the table worked on: the source itself when it is its path, else a copy there
  std::string columns[3];
  float factors[3] = {1, 1, 1};
  int mode = 0;  // 0 whole colour, 1 bytes 0 and 2 exchanged, 2 one byte per column
  bool apply = false;
};

// 1, or 0 when the copy could not be committed or an object's update failed.
int RunColorTableObjects(const ColorObjectsRequest& request);
