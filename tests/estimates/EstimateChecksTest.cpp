#include "HalvaneTest.h"

#include "composition/ItemRules.h"
#include "composition/LineRules.h"
#include "estimates/EstimateChecks.h"

namespace {

Cells makeLine(const QString& price) {
    Cells cells(MakeLine::Columns);
    cells[MakeLine::MakeElmt] = u"足継手"_qs;
    cells[MakeLine::Price] = price;
    return cells;
}

Cells partLine(const QString& price) {
    Cells cells(PartsLine::Columns);
    cells[PartsLine::PartsNm] = u"ゴム"_qs;
    cells[PartsLine::Price] = price;
    return cells;
}

ClaimRow claim(const QString& law, const QString& amount) {
    ClaimRow row;
    row.InsNo = law;
    row.ask.AskPrice = amount;
    return row;
}

EstimateDraft order(const QList<Cells>& make, const QList<Cells>& parts = {}) {
    EstimateDraft draft;
    draft.customer.CustNm1 = u"橋本"_qs;
    draft.estimate.Tax = u"0"_qs;
    Cells item(ItemRules::Columns);
    item[ItemRules::Item] = u"下肢装具"_qs;
    item[ItemRules::PickKbn] = u"採型"_qs;
    draft.composition.add({0, item, make, parts});
    return draft;
}

} // namespace

class EstimateChecksTest : public QObject {
    Q_OBJECT

private slots:
    void aWholeOrderIsNotRemarkedOn() {
        EstimateDraft draft = order({makeLine(u"12300"_qs)});
        QCOMPARE(remarksOf(draft).all(), QStringList());
        draft.claims = {claim(u"3"_qs, u"12300"_qs)};
        QCOMPARE(remarksOf(draft).all(), QStringList());
    }

    void anEmptyOrderIsNotReproachedWithIt() { QCOMPARE(remarksOf(EstimateDraft()).all(), QStringList()); }

    void anOrderOfNobodyIsTold() {
        EstimateDraft draft = order({makeLine(u"12300"_qs)});
        draft.customer.CustNm1 = u"　"_qs;
        QCOMPARE(remarksOf(draft).all(), QStringList(u"氏名なし"_qs));
        draft.customer.CustNm2 = u"一郎"_qs;
        QCOMPARE(remarksOf(draft).all(), QStringList());
    }

    void linesOfNothingAreCountedByTheirPage() {
        const EstimateDraft draft =
            order({makeLine(u"0"_qs), makeLine(u"500"_qs), makeLine(u"0"_qs)}, {partLine(u"0"_qs)});
        QCOMPARE(remarksOf(draft).makeLines, u"基本・製作要素に0円の行 2"_qs);
        QCOMPARE(remarksOf(draft).partLines, u"完成要素に0円の行 1"_qs);
        QCOMPARE(remarksOf(draft).total, QString());
    }

    void anOrderOverNothingIsTold() {
        QCOMPARE(remarksOf(order({makeLine(u"0"_qs)})).total, u"0円の見積"_qs);
        QCOMPARE(remarksOf(order({makeLine(u"500"_qs), makeLine(u"-500"_qs)})).total, u"0円の見積"_qs);
    }

    void claimsThatMissTheTotalAreTold() {
        EstimateDraft draft = order({makeLine(u"10000"_qs)});
        draft.claims = {claim(u"3"_qs, u"7000"_qs), claim(u"4"_qs, u"2000"_qs)};
        QCOMPARE(remarksOf(draft).claims, u"請求が総合計と 1,000円 違います"_qs);
        draft.claims = {claim(u"3"_qs, u"7000"_qs), claim(u"4"_qs, u"4000"_qs)};
        QCOMPARE(remarksOf(draft).claims, u"請求が総合計と -1,000円 違います"_qs);
        draft.claims = {claim(u"3"_qs, {}), claim(u"4"_qs, {})}; // nothing is claimed yet
        QCOMPARE(remarksOf(draft).claims, QString());
        draft.claims = {claim(u"3"_qs, u"10000"_qs), claim({}, u"500"_qs)}; // no claim without a law
        QCOMPARE(remarksOf(draft).claims, QString());
    }

    void anAmountWithoutLawIsLostUnlessItsLawWasTakenAway() {
        EstimateDraft draft = order({makeLine(u"10000"_qs)}), loaded = draft;
        draft.claims = {claim(u"3"_qs, u"7000"_qs), claim({}, u"2000"_qs)};
        QCOMPARE(rowOfLostAmount(draft, loaded, {}), 1);
        loaded.claims = {claim(u"3"_qs, {}), claim(u"4"_qs, {})};
        QCOMPARE(rowOfLostAmount(draft, loaded, {}), -1);
    }
};

HALVANE_TEST(EstimateChecksTest)
#include "EstimateChecksTest.moc"
