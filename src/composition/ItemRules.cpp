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

// That a price row has the row's texts up to a column.
SqlTerm hasTexts(const Cells& row, int column) {
    using Row = clsPriceItem;
    static const QList<QString Row::*> texts{&Row::Item, &Row::PickKbn, &Row::Name, &Row::Form};
    QList<SqlTerm> terms;
    for (int i = Item; i <= column; ++i) terms << gPriceItemManager.equal(texts.at(i - Item), row.at(i));
    return SqlAllOf(terms);
}

// Clears the quick entry when no valid row of that ID has the row's texts up to a column.
void checkRowId(Cells& row, int column) {
    if (row.at(RowId).isEmpty()) return;
    if (validItems(SqlAllOf({isId(row.at(RowId)), hasTexts(row, column)})).isEmpty()) row[RowId].clear();
}

void startAnew(Cells& row, int column) {
    if (validItems(hasTexts(row, column)).isEmpty()) row[column].clear();
    if (column != Form) clearFrom(row, column + 1);
}

void takeText(Cells& row, int column, const Habits& habits) {
    if (habits.startsAnew) startAnew(row, column);
    checkRowId(row, column);
    narrow(row, column + 1);
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
void startPickStyle(Cells& row, const Habits& habits) {
    if (row.at(Item).isEmpty()) return;
    if (!hasPickStyle(row.at(Item)))
        row[PickStyle] = u"0"_qs;
    else if (row.at(PickStyle) != u"1" && row.at(PickStyle) != u"2")
        row[PickStyle] = habits.takesFirstStyle ? assistChoices(AssistGroup::PickStyle).value(0).value : QString();
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

void edited(Cells& row, int column, const QString& before, const Habits& habits) {
    if (row.at(column) == before || column > Form) return;
    const bool isEmpty = row.at(column).isEmpty();
    if (column == RowId && !isEmpty)
        takeRowId(row);
    else if (!isEmpty)
        takeText(row, column, habits);
    else if (column != Form)
        clearBehind(row, column);
    if (column != Form && !isEmpty) startPickStyle(row, habits);
    if (column != RowId && habits.namesId) row[RowId] = idOf(row);
}

QString idOf(const Cells& row) {
    if (!isFilledUpTo(row, PickStyle)) return {};
    const QList<clsPriceItem> found = validItems(hasTexts(row, Form));
    return found.size() == 1 ? found.first().ID : QString();
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
