#pragma once

#include "base/Archive.h"

// Makes zip archives for tests.
namespace PackedFiles {
void write(const QString& path, const QList<PackedFile>& files);
}
