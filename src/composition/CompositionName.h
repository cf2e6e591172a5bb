#pragma once

#include "composition/Composition.h"

// The proposal for the name of what is composed, made of its items.

struct NameRules {
    QString side;           // the shown text that stands before or behind a name; empty names none
    QString grantRepair;    // 修理交付反映: "1" names both, "3" 修理 alone
    bool pickStyle = false; // 採型採寸反映
    bool joinsShoe = true;  // a brace and a shoe become one article, by 付き
};

// As the settings of the office have them, for an estimate of this side.
NameRules officeNameRules(const QString& side);

// Empty when no item counts.
QString automaticName(const Composition& composition, const NameRules& rules);
