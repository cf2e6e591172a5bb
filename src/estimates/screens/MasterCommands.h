#pragma once

#include "estimates/EstimateDraft.h"
#include "master/MasterRecords.h"

#include <optional>

class QWidget;

// What the editor of an estimate does with master estimates.
namespace MasterCommands {

// The master estimate of a typed code: at once when it is the code of one, else chosen among those whose code begins
// with it. Nothing when there is none, or the choice was cancelled.
std::optional<clsMstEstimate> ofTypedCode(QWidget* parent, const QString& ProductCd);
// Chosen among those whose code begins with a text, all of them when it is empty. That there is none is told.
std::optional<clsMstEstimate> choose(QWidget* parent, const QString& ProductCd);

// The name of the master estimate with a product code; empty when no code or none alone has it.
QString nameOf(const QString& ProductCd);

// Asks for code and name and stores the contents of an estimate as a new master estimate.
void store(QWidget* parent, const EstimateDraft& draft);

} // namespace MasterCommands
