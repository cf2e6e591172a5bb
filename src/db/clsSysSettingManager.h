#pragma once

#include "db/TableManager.h"

// Table `システム設定`: the numbered settings.
struct clsSysSetting {
    QString No;
    QString SetItem;  // 設定項目
    QString SetValue; // 設定値
    QString Memo;     // 備考
};

// The numbers of the settings.
namespace Setting {
inline constexpr int FirstMonth = 1; // of the business year
inline constexpr int Tax = 2;        // 3 is the other rate that an estimate may take
inline constexpr int PrintsSex = 7;
inline constexpr int PrintsBirth = 8;
inline constexpr int PrintsInsured = 9;
inline constexpr int PrintsAddress = 10;
inline constexpr int PrintsTel = 11;
inline constexpr int LinesPerPage = 13;
inline constexpr int ReceiptCopy = 15;
inline constexpr int NameSide = 17;
inline constexpr int NameGrantRepair = 18;
inline constexpr int NamePickStyle = 19;
inline constexpr int PriceYear = 20;
// Of each kind of document, in the order of the kinds: 見積書 21, 内訳書 23 and so on, and behind it the form of its
// date.
inline constexpr int PaperSizes = 21;
inline constexpr int DateForms = 22;
inline constexpr int OpinionPaper = 31;
inline constexpr int OpinionType = 32; // 2: with the age in place of the birth date
inline constexpr int TmpSetDays = 33;  // from the casting date to the planned ones
inline constexpr int CmpltDays = 34;
inline constexpr int DelvDays = 35;
inline constexpr int AskDays = 36;
inline constexpr int PayInDays = 37;
inline constexpr int InvoiceCopy = 39;
inline constexpr int WorkPlanPaper = 40;
inline constexpr int AccidentEstimate = 41;
inline constexpr int Account = 42;
inline constexpr int AccidentInvoice = 43;
inline constexpr int UsesProductName = 44;
inline constexpr int DatabaseVersion = 99;

constexpr int paperSize(int documentKind) { return PaperSizes + 2 * (documentKind - 1); }
constexpr int dateForm(int documentKind) { return DateForms + 2 * (documentKind - 1); }
} // namespace Setting

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
    // Makes the row of a setting that has none.
    void AddData(const clsSysSetting& setting) { save(setting); }
};

extern clsSysSettingManager gSysSettingManager;
