#pragma once

#include "db/SqlText.h"
#include "ui/GridColumn.h"

#include <QList>
#include <QString>

#include <utility>

class ChoiceBox;
class QTabBar;

// --- keys ---

// What number fields and date fields of the plain kind take.
inline const QString numericKeys = u"0123456789+-,"_qs;
inline const QString dateKeys = u"0123456789/"_qs;

// --- lists ---

inline const QString allEntry = u"（全て）"_qs;
inline const QString noneEntry = u"（なし）"_qs;

// The entries that stand above those of a list; both read as no filter, with empty item data.
struct ListHead {
    bool all = false;
    bool none = false;
};

// Empties a list and puts its head in; every filling routine begins with it. The shown choice is gone.
void BeginList(ChoiceBox* list, ListHead head = {});
void AddListEntry(ChoiceBox* list, const QString& text, const QString& data);
// The text to filter by: empty when nothing, （全て） or （なし） is chosen.
QString FilterText(const ChoiceBox* list);
// One entry for each comma field of a text such as "100,95,70", with itself as item data.
void FillCommaList(ChoiceBox* list, const QString& text, ListHead head = {});
// The entries of 左右区分.
QStringList SideEntries();

// Lists from the managers, each in its natural order; an entry carries its number as item data.
void FillPrefList(ChoiceBox* list, ListHead head = {});
// The cities of a prefecture; of all when it is empty.
void FillCityList(ChoiceBox* list, const QString& pref, ListHead head = {});
// `where` is a condition of their manager such as `inUse`.
void FillDoctorList(ChoiceBox* list, const SqlTerm& where = {}, ListHead head = {});
void FillProducerList(ChoiceBox* list, const SqlTerm& where = {}, ListHead head = {});
// `sort` is that of the numbers or `bySeq`.
void FillInsList(ChoiceBox* list, const SqlTerm& where, const SqlTerm& sort, ListHead head = {});
// The values of a group (see `AssistGroup`) in the order of their numbers unless another is given.
void FillAssistList(ChoiceBox* list, int group, const SqlTerm& sort = {}, ListHead head = {});
// The same with the 設定値 as item data, for columns that hold it.
void FillAssistValueList(ChoiceBox* list, int group, ListHead head = {});
// The values of numbered settings, such as "2,3" for the two tax rates.
void FillTaxList(ChoiceBox* list, const QString& settingNumbers, ListHead head = {});
// One text of each row that a price group list of the managers gives, with its ID as item data:
// FillPriceList(list, gPriceItemManager, &clsPriceItemManager::GetItemGrpList, &clsPriceItem::Item, where).
template <class Manager, class Record>
void FillPriceList(ChoiceBox* list, Manager& manager, void (Manager::*getGroup)(QList<Record>&, const SqlTerm&),
                   QString Record::*text, const SqlTerm& where = {}, ListHead head = {}) {
    QList<Record> rows;
    (manager.*getGroup)(rows, where);
    BeginList(list, head);
    for (const Record& row : rows) AddListEntry(list, row.*text, row.ID);
}

// --- kana tabs ---

// Fills a tab bar with 全 あ か さ … わ 他.
void FillKanaTabs(QTabBar* tabs);
// The range filter of a tab on a reading column; 全 gives none.
SqlTerm KanaTabFilter(const SqlTerm& column, int tabIndex);
// The tab whose range holds the first character of a reading; 他 for any other, -1 for an empty reading.
int KanaTabOf(const QString& reading);
