#pragma once

#include <QByteArray>

#include <optional>

// The place of a key that stands twice in one object of well-formed JSON. Qt's reader would silently take the last.
std::optional<qsizetype> repeatedJsonKey(const QByteArray& json);
