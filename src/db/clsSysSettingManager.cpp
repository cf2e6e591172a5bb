#include "db/clsSysSettingManager.h"

clsSysSettingManager gSysSettingManager;

clsSysSettingManager::clsSysSettingManager()
    : TableManager(u"システム設定"_qs, {{&clsSysSetting::No, u"No"_qs},
                                        {&clsSysSetting::SetItem, u"設定項目"_qs},
                                        {&clsSysSetting::SetValue, u"設定値"_qs},
                                        {&clsSysSetting::Memo, u"備考"_qs}}) {}

bool clsSysSettingManager::GetData(int No, clsSysSetting& setting) { return get({QString::number(No)}, setting); }

QString clsSysSettingManager::value(int No, const QString& whenMissing) {
    clsSysSetting setting;
    return GetData(No, setting) ? setting.SetValue : whenMissing;
}

QList<clsSysSetting> clsSysSettingManager::byValue(const QStringList& numbers) {
    QList<clsSysSetting> settings;
    GetList(settings, SqlOneOf(column(&clsSysSetting::No), numbers), column(&clsSysSetting::SetValue));
    return settings;
}

void clsSysSettingManager::SaveData(const clsSysSetting& setting) { update(setting, {u"設定値"_qs}); }

void clsSysSettingManager::SaveDataS(const QList<clsSysSetting>& settings) {
    for (const clsSysSetting& setting : settings) SaveData(setting);
}
