#include "HalvaneTest.h"

#include "support/ProgramFolder.h"

#include "base/Text.h"
#include "base/clsLogger.h"
#include "estimates/EstimateCsv.h"

#include <QScopeGuard>

namespace {

clsCsEstimate estimate() {
    clsCsEstimate estimate;
    estimate.EstNo = u"2024000013"_qs;
    return estimate;
}

clsCustomer takahashi() {
    clsCustomer customer;
    customer.CustNm1 = u"髙橋"_qs;
    customer.CustNm2 = u"信二"_qs;
    return customer;
}

} // namespace

class EstimateCsvTest : public QObject {
    Q_OBJECT

private slots:
    void fieldsFollowTheColumns() {
        clsCsEstimate estimate;
        estimate.EstNo = u"2024000001"_qs;
        estimate.EstNm = u"短下肢装具"_qs;
        estimate.EstSum = u"70299"_qs;
        clsCustomer customer;
        customer.CustNm1 = u"青木"_qs;
        customer.Birth = u"1948/02/11"_qs;
        const QStringList fields = EstimateCsv::fields(estimate, customer);
        const auto field = [&](const QString& column) { return fields.at(EstimateCsv::columns().indexOf(column)); };
        QCOMPARE(fields.size(), 16);
        QCOMPARE(field(u"見積番号"_qs), estimate.EstNo);
        QCOMPARE(field(u"名前1"_qs), u"青木"_qs);
        QCOMPARE(field(u"生年月日"_qs), u"1948/02/11"_qs);
        QCOMPARE(field(u"金額"_qs), u"70299"_qs);
    }

    void lackingCharactersAreToldByRowPersonAndField() {
        clsCustomer customer = takahashi();
        customer.Addr1 = u"①髙🙂"_qs;
        customer.Addr2 = u"𠮷田ビル"_qs;
        const auto found = EstimateCsv::lacking(13, estimate(), customer);
        QCOMPARE(EstimateCsv::told(found), u"13行目（2024000013 髙橋　信二） 住所1：🙂\n"
                                           u"13行目（2024000013 髙橋　信二） 住所2：𠮷"_qs);
    }

    void signsThatNobodySeesAreToldByTheirCodePoint() {
        clsCustomer customer = takahashi();
        customer.City = u"葛\U000E0100城市\u200B"_qs;
        QCOMPARE(EstimateCsv::told(EstimateCsv::lacking(1, estimate(), customer)),
                 u"1行目（2024000013 髙橋　信二） 市区郡：葛（異体字 U+E0100）、市（見えない文字 U+200B）"_qs);
    }

    void aTextThatLacksNothingIsNotTold() { QVERIFY(EstimateCsv::lacking(1, estimate(), takahashi()).isEmpty()); }

    void manyAreCounted() {
        const ProgramFolder folder;
        folder.writeProfile("[Log]\r\nPath=.\r\n");
        gLogger = std::make_unique<clsLogger>();
        const auto end = qScopeGuard([] { gLogger.reset(); });
        QList<EstimateCsv::Lacking> found;
        for (int row = 1; row <= 1300; ++row)
            found << EstimateCsv::Lacking{row, u"2024000013 𠮷田"_qs, u"名前1"_qs, {u"𠮷"_qs}};
        const QString told = EstimateCsv::told(found);
        QCOMPARE(told.count(u'\n'), 15);
        QVERIFY(told.endsWith(u"ほか 1,285か所（すべての箇所はログに記録しました）"_qs));
        QFile log(gLogger->FileNm());
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QString lines = Text::fromCp932(log.readAll());
        QCOMPARE(lines.count(u"Shift_JIS にない文字 "_qs), 1300);
        QVERIFY(lines.contains(u"1,300行目（2024000013 U+20BB7田） 名前1：U+20BB7"_qs));
    }
};

HALVANE_TEST(EstimateCsvTest)
#include "EstimateCsvTest.moc"
