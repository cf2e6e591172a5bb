#pragma once

#include <QString>

// Either separator in a configured path becomes the platform's own.
QString platformPath(const QString& path);
// Empty stays empty, an absolute path stays, all else is joined under the program folder, or another one.
QString ResolvePath(const QString& path);
QString ResolvePath(const QString& path, const QString& folder);
