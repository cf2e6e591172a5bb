#pragma once

#include "ui/GridColumn.h"

#include <QString>

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
// The text to filter by: empty when nothing, （全て） or （なし） is chosen.
QString FilterText(const ChoiceBox* list);
// One entry for each comma field of a text such as "100,95,70", with itself as item data.
void FillCommaList(ChoiceBox* list, const QString& text, ListHead head = {});
// The entries of 左右区分.
QStringList SideEntries();

// --- kana tabs ---

// Fills a tab bar with 全 あ か さ … わ 他.
void FillKanaTabs(QTabBar* tabs);
// The range filter of a tab on a reading column; 全 gives none.
QString KanaTabFilter(const QString& column, int tabIndex);
