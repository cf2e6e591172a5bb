#pragma once

#include "master/MasterDraft.h"

#include <QJsonObject>

// All that a draft holds as JSON and back: also what it was loaded from, and the saves whose outcome was not told.
QJsonObject masterToJson(const MasterDraft& draft);
MasterDraft masterFromJson(const QJsonObject& object);

// What it is, in the operator's words.
QString titleOf(const MasterDraft& draft);
