#pragma once

#include <QList>
#include <QString>

// The proposal for the name of an estimate, made of its items.

// An item as the name needs it; the last two are the shown texts of their choices.
struct NamedItem {
    QString item, name, form, pickStyle, grantRepair;
};

struct NameSettings {
    QString side;        // 左右区分反映: "1" names the side
    QString grantRepair; // 修理交付反映: "1" names both, "3" 修理 alone
    QString pickStyle;   // 採型採寸反映: "1" names it
};

// `side` is the shown text; empty or なし adds nothing. Empty when no item counts.
QString automaticName(const QList<NamedItem>& items, const QString& side, const NameSettings& settings);
