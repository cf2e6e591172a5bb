#include "support/MasterSamples.h"

#include "composition/ItemRules.h"
#include "composition/LineRules.h"

namespace MasterSamples {

QString nameFor(int lines) { return u"%1 行"_qs.arg(lines); }

ComposedItem item(const QString& kind, const QString& name, const QString& form, const QString& pickStyle) {
    ComposedItem item{0, Cells(ItemRules::Columns), {}, {}};
    item.cells[ItemRules::Item] = kind;
    item.cells[ItemRules::PickKbn] = u"E-4"_qs;
    item.cells[ItemRules::Name] = name;
    item.cells[ItemRules::Form] = form;
    item.cells[ItemRules::PickStyle] = pickStyle;
    return item;
}

Cells makeLine(const QString& element, const QString& materials, const QStringList& amounts) {
    Cells line(makeRules().columns(3));
    line[MakeLine::MakeElmt] = element;
    line[MakeLine::Materials] = materials;
    line[MakeLine::Suryo] = u"1"_qs;
    for (qsizetype tier = 0; tier < amounts.size(); ++tier) line[makeRules().amount(tier)] = amounts.at(tier);
    return line;
}

Cells partsLine(const QString& name, const QString& form, const QString& code, const QString& amount) {
    Cells line(PartsLine::Columns);
    line[PartsLine::PartsNm] = name;
    line[PartsLine::Form] = form;
    line[PartsLine::PartsCd] = code;
    line[PartsLine::Suryo] = u"1"_qs;
    line[PartsLine::Price] = amount;
    return line;
}

MasterDraft master(const QString& code, int lines) {
    MasterDraft draft = newMaster();
    draft.master.ProductCd = code;
    draft.master.ProductNm = nameFor(lines);
    ComposedItem brace = item(u"下肢装具"_qs, u"短下肢装具"_qs, u"両側支柱"_qs, u"1"_qs);
    for (int i = 0; i < lines; ++i) brace.make << makeLine(u"支持部"_qs, u"皮革"_qs, {u"100"_qs, u"200"_qs, u"300"_qs});
    draft.composition.add(brace);
    return draft;
}

} // namespace MasterSamples
