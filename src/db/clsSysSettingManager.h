#pragma once

#include "db/TableManager.h"

// Table `システム設定`: the numbered settings.
struct clsSysSetting {
    QString No;
    QString SetItem;  // 設定項目
    QString SetValue; // 設定値
    QString Memo;     // 備考
};

class clsSysSettingManager : public TableManager<clsSysSetting> {
public:
    clsSysSettingManager();

    // False when the setting has no row.
    bool GetData(int No, clsSysSetting& setting);
    // The value of a setting, or the given one when its row is missing.
    QString value(int No, const QString& whenMissing = {});
    // The settings of these numbers in the order of their values.
    QList<clsSysSetting> byValue(const QStringList& numbers);
    // Writes the value of an existing setting.
    void SaveData(const clsSysSetting& setting);
    void SaveDataS(const QList<clsSysSetting>& settings);
};

extern clsSysSettingManager gSysSettingManager;
