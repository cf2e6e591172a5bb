#include "composition/LineRules.h"

#include "price/PriceManagers.h"
#include "price/basPriceLookup.h"

// The base and make element lines.

namespace {

using namespace MakeLine;

using Row = clsBaseElmtSelect;

SqlTerm has(QString Row::*member, const QString& value) { return gBaseElmtSelectManager.equal(member, value); }

SqlTerm ofItem(const LineContext& context) {
    return SqlAllOf({has(&Row::Item, context.item), has(&Row::PickKbn, context.pickKbn)});
}

QList<clsBaseElmtSelect> selection(const QList<SqlTerm>& terms) {
    QList<clsBaseElmtSelect> rows;
    gBaseElmtSelectManager.GetList(rows, SqlAllOf(terms), byId);
    return rows;
}

CellChoices choices(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return {};
    CellChoices choices;
    QList<clsBaseElmtSelect> rows;
    switch (column) {
    case RowId:
        for (const clsBaseElmtSelect& entry : selection({ofItem(context)}))
            choices << CellChoice{entry.ID, entry.ID, entry.MakeElmt + u'／' + entry.Materials};
        return choices;
    case MakeElmt:
        gBaseElmtSelectManager.GetListSumMakeElmt(rows, context.item, context.pickKbn);
        return choicesOf(rows, &clsBaseElmtSelect::MakeElmt);
    case Materials:
        if (row.at(MakeElmt).isEmpty()) return {};
        return choicesOf(selection({ofItem(context), has(&Row::MakeElmt, row.at(MakeElmt))}),
                         &clsBaseElmtSelect::Materials);
    default:
        return {};
    }
}

bool ownsRowId(const Cells& row, int column, const LineContext& context) {
    QList<SqlTerm> terms{isId(row.at(RowId)), ofItem(context), has(&Row::MakeElmt, row.at(MakeElmt))};
    if (column >= Materials) terms << has(&Row::Materials, row.at(Materials));
    return !selection(terms).isEmpty();
}

bool takeRowId(Cells& row) {
    const QList<clsBaseElmtSelect> found = selection({isId(row.at(RowId))});
    clearFrom(row, MakeElmt);
    if (found.isEmpty()) return false;
    row[MakeElmt] = found.first().MakeElmt;
    row[Materials] = found.first().Materials;
    return true;
}

void narrowMaterials(Cells& row, const LineContext& context) {
    const CellChoices list = choices(row, Materials, context);
    if (list.size() == 1)
        row[Materials] = list.first().value;
    else if (!holds(list, row.at(Materials)))
        clearFrom(row, Materials);
}

Money lookUp(const Cells& row, const LineContext& context, const QString& tier, qint16& result) {
    return GetElementPrice(context.item, context.pickKbn, context.name, context.form, context.pickStyle,
                           row.at(MakeElmt), row.at(Materials), tier, result);
}

} // namespace

const LineRules& makeRules() {
    static const LineRules rules{&ComposedItem::make,
                                 Suryo,
                                 true,
                                 {{MakeElmt, {narrowMaterials, true}}, {Materials, {nullptr, true}}},
                                 choices,
                                 takeRowId,
                                 ownsRowId,
                                 lookUp};
    return rules;
}
