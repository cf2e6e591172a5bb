#include "composition/LineRules.h"

#include "base/Numbers.h"
#include "price/PriceManagers.h"
#include "price/basPriceLookup.h"

#include <algorithm>

// The complete part lines.

namespace {

using namespace PartsLine;

using Row = clsPriceParts;

SqlTerm has(QString Row::*member, const QString& value) { return gPricePartsManager.equal(member, value); }

SqlTerm usable(const LineContext& context) { return gPricePartsManager.usable(context.item); }

QList<clsPriceParts> parts(const QList<SqlTerm>& terms, const QString& sort = byId) {
    QList<clsPriceParts> rows;
    gPricePartsManager.GetList(rows, SqlAllOf(terms), sort);
    return rows;
}

// The usable parts of the row's name and form.
QList<clsPriceParts> partsOf(const Cells& row, const LineContext& context) {
    return parts({usable(context), has(&Row::Name, row.at(PartsNm)), has(&Row::Form, row.at(Form))},
                 u"[部品コード],[メーカ名] DESC"_qs);
}

QString priceOf(const clsPriceParts& part) { return formatThousands(part.NewPrice); }

CellChoices idChoices(const LineContext& context) {
    CellChoices choices;
    for (const clsPriceParts& part : parts({usable(context)}))
        choices << CellChoice{part.ID, part.ID,
                              QStringList{part.Name, part.Form, part.PartsCd, part.MakerNm, priceOf(part)}.join(u'／')};
    return choices;
}

// Codes with their makers, or makers with their codes, each once.
CellChoices partChoices(const Cells& row, int column, const LineContext& context) {
    CellChoices choices;
    const bool byCode = column == PartsCd;
    for (const clsPriceParts& part : partsOf(row, context)) {
        const QString value = byCode ? part.PartsCd : part.MakerNm;
        const QString detail = QStringList{byCode ? part.MakerNm : part.PartsCd, priceOf(part)}.join(u'／');
        const auto known = std::find_if(choices.begin(), choices.end(),
                                        [&](const CellChoice& choice) { return choice.value == value; });
        if (known == choices.end())
            choices << CellChoice{value, value, detail};
        else
            known->detail += u"、"_qs + detail;
    }
    return choices;
}

CellChoices choices(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return {};
    const bool named = !row.at(PartsNm).isEmpty();
    QList<clsPriceParts> rows;
    switch (column) {
    case RowId:
        return idChoices(context);
    case PartsNm:
        gPricePartsManager.GetListSumPartsNm(rows, context.item);
        return choicesOf(rows, &clsPriceParts::Name);
    case Form:
        if (named) gPricePartsManager.GetListSumForm(rows, context.item, row.at(PartsNm));
        return choicesOf(rows, &clsPriceParts::Form);
    case PartsCd:
    case MakerNm:
        return named && !row.at(Form).isEmpty() ? partChoices(row, column, context) : CellChoices();
    default:
        return {};
    }
}

bool ownsRowId(const Cells& row, int column, const LineContext& context) {
    QList<SqlTerm> terms{isId(row.at(RowId)), usable(context), has(&Row::Name, row.at(PartsNm))};
    if (column >= Form) terms << has(&Row::Form, row.at(Form));
    if (column >= PartsCd) terms << u"IIF(ISNULL([部品コード]), '', [部品コード]) = "_qs + sqlText(row.at(PartsCd));
    if (column >= MakerNm && !row.at(MakerNm).isEmpty()) terms << has(&Row::MakerNm, row.at(MakerNm));
    return !parts(terms).isEmpty();
}

// Of several rows alike the chosen one's own price counts.
bool takeRowId(Cells& row) {
    const QList<clsPriceParts> found = parts({isId(row.at(RowId)), gPricePartsManager.inUse()});
    clearFrom(row, PartsNm);
    if (found.size() != 1) return false;
    const clsPriceParts& part = found.first();
    row[PartsNm] = part.Name;
    row[Form] = part.Form;
    row[PartsCd] = part.PartsCd;
    row[MakerNm] = part.MakerNm;
    row[Suryo] = u"1"_qs;
    row[UnitPrice] = row[Price] = Money::leadingNumber(part.NewPrice).toText();
    return false;
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
        clearFrom(row, PartsCd);
    narrowMaker(row, context);
}

// The code of the row's maker: the one that stands there, or the first that the maker has.
void narrowCodeOfMaker(Cells& row, const LineContext& context) {
    QStringList codes;
    for (const clsPriceParts& part : partsOf(row, context))
        if (part.MakerNm == row.at(MakerNm)) codes << part.PartsCd;
    if (!codes.isEmpty() && !codes.contains(row.at(PartsCd))) row[PartsCd] = codes.first();
}

void narrowForm(Cells& row, const LineContext& context) {
    const CellChoices list = choices(row, Form, context);
    if (list.size() == 1)
        row[Form] = list.first().value;
    else if (!holds(list, row.at(Form)))
        clearFrom(row, Form);
    if (!row.at(Form).isEmpty()) narrowCode(row, context);
}

Money lookUp(const Cells& row, const LineContext& context, const QString&, qint16& result) {
    return GetPartsPrice(context.item, row.at(PartsNm), row.at(Form), row.at(PartsCd), result);
}

} // namespace

const LineRules& partsRules() {
    static const LineRules rules{&ComposedItem::parts,
                                 Suryo,
                                 false,
                                 {{PartsNm, {narrowForm, true}},
                                  {Form, {narrowCode, true}},
                                  {PartsCd, {narrowMaker, false}},
                                  {MakerNm, {narrowCodeOfMaker, false, PartsCd}}},
                                 choices,
                                 takeRowId,
                                 ownsRowId,
                                 lookUp};
    return rules;
}
