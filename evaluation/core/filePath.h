#ifndef SONAVIA_EVALUATION_CORE_FILEPATH_H
#define SONAVIA_EVALUATION_CORE_FILEPATH_H

#include <QString>

#include <filesystem>

/// A path for the standard library, in the encoding in which Qt names files.
std::filesystem::path filePath(const QString& path);

/// Whether two paths, under whatever names, lead to one and the same existing file.
bool isSameFile(const QString& a, const QString& b);

#endif
