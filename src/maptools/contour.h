// Contour lines of a rectangular grid of values, given as segments to a
// callback one at a time. Each cell is cut into four triangles around its
// centre, and each level that lies within the cell's values is traced
// through them. Nothing is kept, allocated or joined: a segment on an edge
// shared by two triangles or cells may come twice.
#pragma once

// Called for each segment, from (x1, y1) to (x2, y2), on `level`.
using ContourLineFn = void (*)(double x1, double y1, double x2, double y2, double level);

// Values d[i][j] for i from ilb to iub and j from jlb to jub, at x[i] and
// y[j]; `nc` levels z, ascending. Cells are visited with j from jub - 1 down
// to jlb and, for each j, i from ilb up to iub - 1; within a cell the levels
// go up. Always returns 0.
int ContourGrid(const double* const* d, int ilb, int iub, int jlb, int jub, const double* x, const double* y, int nc,
                const double* z, ContourLineFn line);
