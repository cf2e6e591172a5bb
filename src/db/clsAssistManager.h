#pragma once

#include "db/TableManager.h"

// Table `補助設定`: the values of the grouped choice lists.
struct clsAssist {
    QString AsstNo;   // 管理No
    QString AsstGr;   // 分類, one of AssistGroup
    QString AsstData; // 設定値
    QString AsstView; // 表示名
    QString AsstMemo; // 説明
};

namespace AssistGroup {
inline constexpr int PickStyle = 1;   // 採型／採寸
inline constexpr int GrantRepair = 2; // 交付／修理
inline constexpr int Side = 3;        // 左右
inline constexpr int FamilyType = 5;  // 本人区分
inline constexpr int Sex = 6;         // 性別
} // namespace AssistGroup

class clsAssistManager : public TableManager<clsAssist> {
public:
    clsAssistManager();

    bool GetData(const QString& AsstNo, clsAssist& assist);
    void DeleteData(const QString& AsstNo);
    // Updates a row with a number above 0, else inserts one and gives it its number. One transaction.
    void SaveData(clsAssist& assist);
    SqlTerm ofGroup(int group) const;
    // The values of a group in the order of their numbers.
    QList<clsAssist> group(int group);
};

extern clsAssistManager gAssistManager;
