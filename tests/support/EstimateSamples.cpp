#include "support/EstimateSamples.h"

#include "composition/ItemRules.h"
#include "composition/LineRules.h"

namespace EstimateSamples {

QString nameFor(int lines, int claims) { return u"%1/%2"_qs.arg(lines).arg(claims); }

ComposedItem item(const QString& kind, const QString& pickKbn) {
    ComposedItem item{0, Cells(ItemRules::Columns), {}, {}};
    item.cells[ItemRules::Item] = kind;
    item.cells[ItemRules::PickKbn] = pickKbn;
    return item;
}

Cells makeLine(const QString& element, const QString& materials, const QString& price) {
    Cells line(MakeLine::Columns);
    line[MakeLine::MakeElmt] = element;
    line[MakeLine::Materials] = materials;
    line[MakeLine::Suryo] = u"1"_qs;
    line[MakeLine::UnitPrice] = line[MakeLine::Price] = price;
    return line;
}

EstimateDraft order(int lines, int claims) {
    EstimateDraft draft;
    draft.customer.CustNm1 = u"見本"_qs;
    draft.customer.CustNm2 = nameFor(lines, claims);
    draft.chart.DiseaseNm = u"変形性膝関節症"_qs;
    ComposedItem brace = item(u"下肢装具"_qs, u"E-4"_qs);
    for (int i = 0; i < lines; ++i) brace.make << makeLine(u"基本価格"_qs, u"＊"_qs, u"1000"_qs);
    draft.composition.add(brace);
    for (int i = 0; i < claims; ++i) {
        ClaimRow row;
        row.InsNo = QString::number(i + 1);
        row.ask.AskPrice = u"1000"_qs;
        draft.claims << row;
    }
    draft.estimate.EstNm = nameFor(lines, claims);
    draft.estimate.Tax = u"6"_qs;
    return draft;
}

} // namespace EstimateSamples
