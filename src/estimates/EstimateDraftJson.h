#pragma once

#include "estimates/EstimateDraft.h"

#include <QJsonObject>

// All that a draft holds as JSON and back: also what it was loaded from, and the saves whose outcome was not told, so
// that a later save finds out the same as this one would have.
QJsonObject estimateToJson(const EstimateDraft& draft);
EstimateDraft estimateFromJson(const QJsonObject& object);

// What it is, in the operator's words.
QString titleOf(const EstimateDraft& draft);
