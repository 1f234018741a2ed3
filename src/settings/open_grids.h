// The grids open in the host, left in "GRID_LIST" of the product's Messages
// key as their paths joined by "|", in table order.
#pragma once

#include <string>

// The paths of the open grids: each grid raster table's raster, taken to
// lie beside its .TAB, joined by "|". Empty when no grid is open.
std::string GetOpenGridList();

// Writes the empty text.
void ClearOpenGridsInRegistry();
// Writes the list of the open grids.
void SaveOpenGridsInRegistry();
