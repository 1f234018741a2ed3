// Directories that the module leaves in the registry for the products'
// other programs: the configuration directory ("ConfigDir" of the Setup
// key) and the project folder ("PROJECT_FOLDER" of the 3D Settings key).
#pragma once

#include <string>

// Writes "ConfigDir"; a variant out of range counts as Terravik here.
// Whether the key could be created or opened.
bool SaveConfigDir(const std::string& directory);

// Writes "PROJECT_FOLDER" with a trailing separator ("\" added unless the
// text ends in "\" or "/"), for the product whose script runs in the host.
// 1, whatever the registry did.
int SaveProjectDirectory(std::string directory);
