#pragma once

#include <QString>

// Why a step does not hold.
struct StepFailure {
    QString found;
    QString expected;
};
