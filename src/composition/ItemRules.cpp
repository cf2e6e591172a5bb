#include "composition/ItemRules.h"

#include "db/clsAssistManager.h"
#include "price/PriceManagers.h"
#include "price/basPriceLookup.h"

namespace ItemRules {

namespace {

CellChoices assistChoices(int group) {
    CellChoices choices;
    for (const clsAssist& assist : gAssistManager.group(group))
        choices << CellChoice{assist.AsstNo, assist.AsstView, {}};
    return choices;
}

QList<clsPriceItem> validItems(const SqlTerm& where = {}) {
    QList<clsPriceItem> items;
    gPriceItemManager.GetList(items, SqlAllOf({where, gPriceItemManager.inUse()}), byId);
    return items;
}

CellChoices priceItems() {
    CellChoices choices;
    for (const clsPriceItem& item : validItems())
        choices << CellChoice{item.ID, item.ID, QStringList{item.Item, item.PickKbn, item.Name, item.Form}.join(u'／')};
    return choices;
}

bool isFilledUpTo(const Cells& row, int column) {
    for (int i = Item; i < column; ++i)
        if (row.at(i).isEmpty()) return false;
    return true;
}

// Fills single choices from a column on; a text that the list no longer holds goes, with all to its right.
void narrow(Cells& row, int column) {
    if (column > Form) return;
    const CellChoices list = choices(row, column);
    if (list.size() == 1)
        row[column] = list.first().value;
    else if (!holds(list, row.at(column)))
        return clearFrom(row, column);
    narrow(row, column + 1);
}

// Clears the quick entry when no valid row of that ID has the row's texts up to a column.
void checkRowId(Cells& row, int column) {
    if (row.at(RowId).isEmpty()) return;
    using Row = clsPriceItem;
    static const QList<QString Row::*> texts{&Row::Item, &Row::PickKbn, &Row::Name, &Row::Form};
    QList<SqlTerm> terms{isId(row.at(RowId))};
    for (int i = Item; i <= column; ++i) terms << gPriceItemManager.equal(texts.at(i - Item), row.at(i));
    if (validItems(SqlAllOf(terms)).isEmpty()) row[RowId].clear();
}

void takeRowId(Cells& row) {
    const QList<clsPriceItem> found = validItems(isId(row.at(RowId)));
    if (found.size() != 1) return clearFrom(row, Item, Form);
    row[Item] = found.first().Item;
    row[PickKbn] = found.first().PickKbn;
    row[Name] = found.first().Name;
    row[Form] = found.first().Form;
}

// Only the 種目 priced by 採型 or 採寸 ask for that choice.
void startPickStyle(Cells& row, PickStyleStart start) {
    if (row.at(Item).isEmpty()) return;
    if (!hasPickStyle(row.at(Item)))
        row[PickStyle] = u"0"_qs;
    else if (row.at(PickStyle) != u"1" && row.at(PickStyle) != u"2")
        row[PickStyle] =
            start == PickStyleStart::Empty ? QString() : assistChoices(AssistGroup::PickStyle).value(0).value;
}

void clearBehind(Cells& row, int column) {
    if (column == PickKbn)
        clearFrom(row, Name, Form);
    else
        clearFrom(row, column == Name ? int(Form) : column);
}

} // namespace

CellChoices choices(const Cells& row, int column) {
    if (column == RowId) return priceItems();
    if (!isFilledUpTo(row, column)) return {};
    QList<clsPriceItem> items;
    switch (column) {
    case Item:
        gPriceItemManager.GetListSumItem(items);
        return choicesOf(items, &clsPriceItem::Item);
    case PickKbn:
        gPriceItemManager.GetListSumPickPtnKbn(items, row.at(Item));
        return choicesOf(items, &clsPriceItem::PickKbn);
    case Name:
        gPriceItemManager.GetListSumName(items, row.at(Item), row.at(PickKbn));
        return choicesOf(items, &clsPriceItem::Name);
    case Form:
        gPriceItemManager.GetListSumForm(items, row.at(Item), row.at(PickKbn), row.at(Name));
        return choicesOf(items, &clsPriceItem::Form);
    case PickStyle:
        return hasPickStyle(row.at(Item)) ? assistChoices(AssistGroup::PickStyle) : CellChoices();
    case GrantRepair:
        return assistChoices(AssistGroup::GrantRepair);
    default:
        return {};
    }
}

void edited(Cells& row, int column, const QString& before, PickStyleStart start) {
    if (row.at(column) == before || column > Form) return;
    if (row.at(column).isEmpty()) {
        if (column != Form) clearBehind(row, column);
        return;
    }
    if (column == RowId) {
        takeRowId(row);
    } else {
        checkRowId(row, column);
        narrow(row, column + 1);
    }
    if (column != Form) startPickStyle(row, start);
}

bool isUsable(const Cells& row) { return !row.at(Item).isEmpty() && !row.at(PickKbn).isEmpty(); }

QStringList shownTexts(const Cells& row) {
    QStringList texts = row.mid(Item, PickStyle - Item);
    for (const auto& [column, group] :
         {std::pair(int(PickStyle), AssistGroup::PickStyle), std::pair(int(GrantRepair), AssistGroup::GrantRepair)}) {
        const CellChoices known = assistChoices(group);
        const auto shown = std::find_if(known.begin(), known.end(), [&, column = column](const CellChoice& choice) {
            return choice.value == row.at(column);
        });
        texts << (shown == known.end() ? QString() : shown->shown);
    }
    return texts;
}

} // namespace ItemRules
