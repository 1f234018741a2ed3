// The holes of a drillhole or trench project as the host holds them: the
// tables know their hole id column from their metadata, and the rows are
// read one by one through the host.
#pragma once

#include <string>

#include "wizards/drillhole_wiz_dlg.h"

// The id column named by the metadata `key` of `table`: "COL" and the
// key's number, cut to an integer.
std::string IdColumnOf(const std::string& table, const std::string& key);

// Every row's hole id of the collar table in the box's available list,
// with the row counted from 0; then each row of the host's selection, when
// the selection is of the collar table, moves the first available hole of
// its id to the selected list.
void ReadHoles(CDrillholeWizDlg& dialog, const std::string& collarTable, const std::string& idColumn);
