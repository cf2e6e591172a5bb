#pragma once

#include "composition/Composition.h"

#include <QJsonArray>

// What is composed as JSON, row by row, empty rows included. Reading brings each line to the columns of so many age
// tiers, whatever was written.
QJsonArray compositionToJson(const Composition& composition);
Composition compositionFromJson(const QJsonArray& array, int tiers);
