#include "estimates/GridRules.h"

#include "base/basCommon.h"
#include "db/clsAssistManager.h"
#include "estimates/EstimateAmounts.h"
#include "price/PriceManagers.h"
#include "price/basPriceLookup.h"

#include <QMap>

namespace {

const QString byId = u"[ID]"_qs;

void clearFrom(Cells& row, int first, int last) {
    for (int column = first; column <= last; ++column) row[column].clear();
}

QString term(const QString& column, const QString& value) { return u'[' + column + u"] = "_qs + sqlText(value); }

// "[ID] = n AND …" for a typed ID; nothing that a table can hold when it is no number.
QString idTerm(const QString& id) {
    return u"[ID] = "_qs + (isPlainNumber(id) && !id.contains(u'.') && id.size() < 10 ? id : u"-1"_qs);
}

template <class Record> CellChoices choicesOf(const QList<Record>& records, QString Record::*member) {
    CellChoices choices;
    for (const Record& record : records) choices << CellChoice{record.*member, record.*member, {}};
    return choices;
}

bool holds(const CellChoices& choices, const QString& value) {
    return std::any_of(choices.begin(), choices.end(), [&](const CellChoice& choice) { return choice.value == value; });
}

CellChoices assistChoices(int group) {
    CellChoices choices;
    for (const clsAssist& assist : gAssistManager.group(group))
        choices << CellChoice{assist.AsstNo, assist.AsstView, {}};
    return choices;
}

} // namespace

// --- items ---

namespace ItemGrid {

namespace {

CellChoices priceItems() {
    QList<clsPriceItem> items;
    gPriceItemManager.GetList(items, u"[有効Flg] = 0"_qs, byId);
    CellChoices choices;
    for (const clsPriceItem& item : items)
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
    if (list.size() == 1) {
        row[column] = list.first().value;
    } else if (!holds(list, row.at(column))) {
        clearFrom(row, column, GrantRepair);
        return;
    }
    narrow(row, column + 1);
}

// Clears the quick entry when no valid row of that ID has the row's texts up to a column.
void checkRowId(Cells& row, int column) {
    if (row.at(RowId).isEmpty()) return;
    static const QStringList columns{{}, {}, u"種目"_qs, u"採型区分"_qs, u"名称"_qs, u"形式"_qs};
    QStringList terms{idTerm(row.at(RowId)), u"[有効Flg] = 0"_qs};
    for (int i = Item; i <= column; ++i) terms << term(columns.at(i), row.at(i));
    QList<clsPriceItem> found;
    gPriceItemManager.GetList(found, terms.join(u" AND "_qs), byId);
    if (found.isEmpty()) row[RowId].clear();
}

void takeRowId(Cells& row) {
    QList<clsPriceItem> found;
    gPriceItemManager.GetList(found, idTerm(row.at(RowId)) + u" AND [有効Flg] = 0"_qs, byId);
    if (found.size() != 1) {
        clearFrom(row, Item, Form);
        return;
    }
    row[Item] = found.first().Item;
    row[PickKbn] = found.first().PickKbn;
    row[Name] = found.first().Name;
    row[Form] = found.first().Form;
}

// Only the 種目 priced by 採型 or 採寸 ask for that choice.
void applyPickStyle(Cells& row) {
    if (row.at(Item).isEmpty()) return;
    if (!hasPickStyle(row.at(Item)))
        row[PickStyle] = u"0"_qs;
    else if (row.at(PickStyle) != u"1" && row.at(PickStyle) != u"2")
        row[PickStyle].clear();
}

} // namespace

CellChoices choices(const Cells& row, int column) {
    if (column == RowId) return priceItems();
    if (!isFilledUpTo(row, qMin(column, int(PickStyle)))) return {};
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

void edited(Cells& row, int column, const QString& before) {
    if (row.at(column) == before) return;
    const bool empty = row.at(column).isEmpty();
    switch (column) {
    case RowId:
        if (empty) {
            clearFrom(row, RowId, GrantRepair);
        } else {
            takeRowId(row);
            applyPickStyle(row);
        }
        break;
    case Item:
        if (empty) {
            clearFrom(row, Item, GrantRepair);
        } else {
            checkRowId(row, Item);
            narrow(row, PickKbn);
            applyPickStyle(row);
        }
        break;
    case PickKbn:
    case Name:
        if (empty) {
            clearFrom(row, column + 1, column == PickKbn ? int(Form) : int(GrantRepair));
        } else {
            checkRowId(row, column);
            narrow(row, column + 1);
            applyPickStyle(row);
        }
        break;
    case Form:
        if (!empty) checkRowId(row, Form);
        break;
    default:
        break;
    }
}

LineContext context(const Cells& row, const QString& ageKbn) {
    return {row.at(Item), row.at(PickKbn), row.at(Name), row.at(Form), row.at(PickStyle), ageKbn};
}

bool isUsable(const Cells& row) { return !row.at(Item).isEmpty() && !row.at(PickKbn).isEmpty(); }

} // namespace ItemGrid

// --- element lines ---

namespace {

// What follows from an edit of an element line. The two grids differ in their columns and in what narrows what.
struct LineRules {
    struct Columns {
        int rowId, suryo, unitPrice, price;
    };
    struct Text {
        void (*narrow)(Cells&, const LineContext&); // none: nothing depends on it but the price
        bool needed;                                // without it the line holds nothing to its right
    };

    Columns columns;
    void (*takeRowId)(Cells&, const LineContext&);
    void (*checkRowId)(Cells&, int column, const LineContext&);
    void (*priceLine)(Cells&, const LineContext&);
    QMap<int, Text> texts;
};

void lineEdited(const LineRules& rules, Cells& row, int column, const QString& before, const LineContext& context) {
    if (row.at(column) == before) return;
    const bool empty = row.at(column).isEmpty();
    const LineRules::Columns& columns = rules.columns;
    if (column == columns.suryo) row[columns.price] = lineAmount(row.at(columns.unitPrice), row.at(column));
    if (column == columns.rowId && !empty) rules.takeRowId(row, context);
    const auto text = rules.texts.constFind(column);
    const bool isText = text != rules.texts.constEnd();
    if (empty && (column == columns.rowId || (isText && text->needed))) {
        clearFrom(row, column, columns.price);
    } else if (isText) {
        rules.checkRowId(row, column, context);
        if (text->narrow) text->narrow(row, context);
        rules.priceLine(row, context);
    }
}

} // namespace

// --- base and make elements ---

namespace MakeGrid {

namespace {

QString itemTerms(const LineContext& context) {
    return term(u"種目"_qs, context.item) + u" AND "_qs + term(u"採型区分"_qs, context.pickKbn);
}

QList<clsBaseElmtSelect> selection(const QString& where) {
    QList<clsBaseElmtSelect> rows;
    gBaseElmtSelectManager.GetList(rows, where, byId);
    return rows;
}

void priceLine(Cells& row, const LineContext& context) {
    if (row.at(MakeElmt).isEmpty() || row.at(Materials).isEmpty()) {
        clearFrom(row, Suryo, Price);
        return;
    }
    qint16 result = 0;
    const QString price = GetElementPrice(context.item, context.pickKbn, context.name, context.form, context.pickStyle,
                                          row.at(MakeElmt), row.at(Materials), context.ageKbn, result)
                              .toText();
    row[Suryo] = u"1"_qs;
    row[UnitPrice] = row[Price] = price;
}

void checkRowId(Cells& row, int column, const LineContext& context) {
    if (row.at(RowId).isEmpty()) return;
    QString where =
        idTerm(row.at(RowId)) + u" AND "_qs + itemTerms(context) + u" AND "_qs + term(u"製作要素"_qs, row.at(MakeElmt));
    if (column >= Materials) where += u" AND "_qs + term(u"原材料"_qs, row.at(Materials));
    if (selection(where).isEmpty()) row[RowId].clear();
}

void takeRowId(Cells& row, const LineContext& context) {
    const QList<clsBaseElmtSelect> found = selection(idTerm(row.at(RowId)));
    clearFrom(row, MakeElmt, Price);
    if (found.isEmpty()) return;
    row[MakeElmt] = found.first().MakeElmt;
    row[Materials] = found.first().Materials;
    priceLine(row, context);
}

void narrowMaterials(Cells& row, const LineContext& context) {
    const CellChoices list = choices(row, Materials, context);
    if (list.size() == 1)
        row[Materials] = list.first().value;
    else if (!holds(list, row.at(Materials)))
        clearFrom(row, Materials, Price);
}

} // namespace

bool mayEdit(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return false;
    return (column != Suryo && column != Price) || !row.at(MakeElmt).isEmpty();
}

CellChoices choices(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return {};
    if (column == RowId) {
        CellChoices choices;
        for (const clsBaseElmtSelect& entry : selection(itemTerms(context)))
            choices << CellChoice{entry.ID, entry.ID, entry.MakeElmt + u'／' + entry.Materials};
        return choices;
    }
    if (column == MakeElmt) {
        QList<clsBaseElmtSelect> rows;
        gBaseElmtSelectManager.GetListSumMakeElmt(rows, context.item, context.pickKbn);
        return choicesOf(rows, &clsBaseElmtSelect::MakeElmt);
    }
    if (column != Materials || row.at(MakeElmt).isEmpty()) return {};
    return choicesOf(selection(itemTerms(context) + u" AND "_qs + term(u"製作要素"_qs, row.at(MakeElmt))),
                     &clsBaseElmtSelect::Materials);
}

void edited(Cells& row, int column, const QString& before, const LineContext& context) {
    static const LineRules rules{{RowId, Suryo, UnitPrice, Price},
                                 takeRowId,
                                 checkRowId,
                                 priceLine,
                                 {{MakeElmt, {narrowMaterials, true}}, {Materials, {nullptr, true}}}};
    lineEdited(rules, row, column, before, context);
}

} // namespace MakeGrid

// --- complete parts ---

namespace PartsGrid {

namespace {

const QString usable = u" AND [使用設定] = 1 AND [有効Flg] = 0"_qs;

QList<clsPriceParts> parts(const QString& where, const QString& order = byId) {
    QList<clsPriceParts> rows;
    gPricePartsManager.GetList(rows, where, order);
    return rows;
}

// The usable parts of the row's name and form.
QList<clsPriceParts> partsOf(const Cells& row, const LineContext& context) {
    return parts(term(u"種目"_qs, context.item) + u" AND "_qs + term(u"名称"_qs, row.at(PartsNm)) + u" AND "_qs +
                     term(u"形式"_qs, row.at(Form)) + usable,
                 u"[部品コード],[メーカ名] DESC"_qs);
}

QString priceOf(const clsPriceParts& part) { return formatThousands(part.NewPrice); }

void priceLine(Cells& row, const LineContext& context) {
    if (row.at(PartsNm).isEmpty() || row.at(Form).isEmpty()) {
        clearFrom(row, Suryo, Price);
        return;
    }
    qint16 result = 0;
    const QString price = GetPartsPrice(context.item, row.at(PartsNm), row.at(Form), row.at(PartsCd), result).toText();
    row[Suryo] = u"1"_qs;
    row[UnitPrice] = row[Price] = price;
}

void checkRowId(Cells& row, int column, const LineContext& context) {
    if (row.at(RowId).isEmpty()) return;
    QString where = idTerm(row.at(RowId)) + u" AND "_qs + term(u"種目"_qs, context.item) + u" AND "_qs +
                    term(u"名称"_qs, row.at(PartsNm)) + usable;
    if (column >= Form) where += u" AND "_qs + term(u"形式"_qs, row.at(Form));
    if (column >= PartsCd)
        where += u" AND IIF(ISNULL([部品コード]), '', [部品コード]) = "_qs + sqlText(row.at(PartsCd));
    if (parts(where).isEmpty()) row[RowId].clear();
}

void takeRowId(Cells& row, const LineContext&) {
    const QList<clsPriceParts> found = parts(idTerm(row.at(RowId)) + u" AND [有効Flg] = 0"_qs);
    clearFrom(row, PartsNm, Price);
    if (found.size() != 1) return;
    const clsPriceParts& part = found.first();
    row[PartsNm] = part.Name;
    row[Form] = part.Form;
    row[PartsCd] = part.PartsCd;
    row[MakerNm] = part.MakerNm;
    row[Suryo] = u"1"_qs;
    row[UnitPrice] = row[Price] = Money::leadingNumber(part.NewPrice).toText();
}

// The maker of the row's code: the only one there is, or the one chosen before.
void narrowMaker(Cells& row, const LineContext& context) {
    QStringList makers;
    for (const clsPriceParts& part : partsOf(row, context))
        if (part.PartsCd == row.at(PartsCd) && !makers.contains(part.MakerNm)) makers << part.MakerNm;
    if (makers.size() == 1)
        row[MakerNm] = makers.first();
    else if (!makers.contains(row.at(MakerNm)))
        row[MakerNm].clear();
}

void narrowCode(Cells& row, const LineContext& context) {
    const QList<clsPriceParts> list = partsOf(row, context);
    const auto known = [&](const clsPriceParts& part) { return part.PartsCd == row.at(PartsCd); };
    if (list.size() == 1)
        row[PartsCd] = list.first().PartsCd;
    else if (!std::any_of(list.begin(), list.end(), known))
        clearFrom(row, PartsCd, Price);
    narrowMaker(row, context);
}

void narrowForm(Cells& row, const LineContext& context) {
    const CellChoices list = choices(row, Form, context);
    if (list.size() == 1)
        row[Form] = list.first().value;
    else if (!holds(list, row.at(Form)))
        clearFrom(row, Form, Price);
    if (!row.at(Form).isEmpty()) narrowCode(row, context);
}

} // namespace

bool mayEdit(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return false;
    return (column != Suryo && column != Price) || !row.at(PartsNm).isEmpty();
}

CellChoices choices(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return {};
    CellChoices result;
    QList<clsPriceParts> rows;
    switch (column) {
    case RowId:
        for (const clsPriceParts& part : parts(term(u"種目"_qs, context.item) + usable))
            result << CellChoice{
                part.ID, part.ID,
                QStringList{part.Name, part.Form, part.PartsCd, part.MakerNm, priceOf(part)}.join(u'／')};
        return result;
    case PartsNm:
        gPricePartsManager.GetListSumPartsNm(rows, context.item);
        return choicesOf(rows, &clsPriceParts::Name);
    case Form:
        if (row.at(PartsNm).isEmpty()) return {};
        gPricePartsManager.GetListSumForm(rows, context.item, row.at(PartsNm));
        return choicesOf(rows, &clsPriceParts::Form);
    case PartsCd:
    case MakerNm:
        if (row.at(PartsNm).isEmpty() || row.at(Form).isEmpty()) return {};
        for (const clsPriceParts& part : partsOf(row, context)) {
            const bool byCode = column == PartsCd;
            if (!byCode && part.PartsCd != row.at(PartsCd)) continue;
            const QString value = byCode ? part.PartsCd : part.MakerNm;
            result << CellChoice{value, value,
                                 QStringList{byCode ? part.MakerNm : part.PartsCd, priceOf(part)}.join(u'／')};
        }
        return result;
    default:
        return {};
    }
}

void edited(Cells& row, int column, const QString& before, const LineContext& context) {
    static const LineRules rules{
        {RowId, Suryo, UnitPrice, Price},
        takeRowId,
        checkRowId,
        priceLine,
        {{PartsNm, {narrowForm, true}}, {Form, {narrowCode, true}}, {PartsCd, {narrowMaker, false}}}};
    lineEdited(rules, row, column, before, context);
}

} // namespace PartsGrid
