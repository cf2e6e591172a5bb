#include "support/OrderSamples.h"

namespace OrderSamples {

QString nameFor(int lines, int claims) { return u"%1/%2"_qs.arg(lines).arg(claims); }

EstimateDraft order(int lines, int claims) {
    EstimateDraft draft;
    draft.customer.CustNm1 = u"見本"_qs;
    draft.customer.CustNm2 = nameFor(lines, claims);
    draft.chart.DiseaseNm = u"変形性膝関節症"_qs;
    clsCsItem item;
    item.EstItemNo = u"1"_qs;
    item.Item = u"下肢装具"_qs;
    item.PickKbn = u"E-4"_qs;
    draft.items << item;
    QList<clsCsMakeElmt> make;
    for (int i = 0; i < lines; ++i) {
        clsCsMakeElmt line;
        line.MakeElmt = u"基本価格"_qs;
        line.Materials = u"＊"_qs;
        line.Suryo = u"1"_qs;
        line.Price = u"1000"_qs;
        make << line;
    }
    draft.lines.make.replace(1, make);
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

} // namespace OrderSamples
