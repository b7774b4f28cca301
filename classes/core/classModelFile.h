#ifndef SONAVIA_CLASSES_CORE_CLASSMODELFILE_H
#define SONAVIA_CLASSES_CORE_CLASSMODELFILE_H

#include "classes/core/ClassTree.h"

/// The tree in a model file, as ClassTree::fromText() reads it. A file that cannot be opened gives an empty
/// tree; no more than the first MiB of a file is read.
ClassTree readClassModel(const QString& path, QStringList* leftOut = nullptr);

/// Replaces the file, in one piece where the file system can. False when it could not be written; what was
/// there before then stays.
bool writeClassModel(const QString& path, const ClassTree& tree);

#endif
