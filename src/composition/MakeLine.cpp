#include "composition/LineRules.h"

#include "price/PriceManagers.h"
#include "price/basPriceLookup.h"

// The base and make element lines.

namespace {

using namespace MakeLine;

using Row = clsBaseElmtSelect;

SqlTerm has(QString Row::*member, const QString& value) { return gBaseElmtSelectManager.equal(member, value); }

// The elements of wheelchairs stand under any 採型区分.
QStringList categoriesOf(const LineContext& context) {
    static const QString any = u"＊"_qs;
    QStringList categories{context.pickKbn};
    if (isWheelchair(context.item) && context.pickKbn != any) categories << any;
    return categories;
}

SqlTerm ofItem(const LineContext& context) {
    QList<SqlTerm> categories;
    for (const QString& category : categoriesOf(context)) categories << has(&Row::PickKbn, category);
    return SqlAllOf({has(&Row::Item, context.item), SqlAnyOf(categories)});
}

CellChoices elements(const LineContext& context) {
    CellChoices choices;
    for (const QString& category : categoriesOf(context)) {
        QList<clsBaseElmtSelect> rows;
        gBaseElmtSelectManager.GetListSumMakeElmt(rows, context.item, category);
        for (const CellChoice& element : choicesOf(rows, &clsBaseElmtSelect::MakeElmt))
            if (!holds(choices, element.value)) choices << element;
    }
    return choices;
}

QList<clsBaseElmtSelect> selection(const QList<SqlTerm>& terms) {
    QList<clsBaseElmtSelect> rows;
    gBaseElmtSelectManager.GetList(rows, SqlAllOf(terms), byId);
    return rows;
}

CellChoices choices(const Cells& row, int column, const LineContext& context) {
    if (!context.isUsable()) return {};
    CellChoices choices;
    switch (column) {
    case RowId:
        for (const clsBaseElmtSelect& entry : selection({ofItem(context)}))
            choices << CellChoice{entry.ID, entry.ID, entry.MakeElmt + u'／' + entry.Materials};
        return choices;
    case MakeElmt:
        return elements(context);
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
