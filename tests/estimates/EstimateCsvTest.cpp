#include "HalvaneTest.h"

#include "estimates/EstimateCsv.h"

#include <QTest>

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
        const QStringList fields = EstimateCsv::row(estimate, customer).fields;
        const auto field = [&](const QString& column) { return fields.at(EstimateCsv::columns().indexOf(column)); };
        QCOMPARE(fields.size(), 16);
        QCOMPARE(field(u"見積番号"_qs), estimate.EstNo);
        QCOMPARE(field(u"名前1"_qs), u"青木"_qs);
        QCOMPARE(field(u"生年月日"_qs), u"1948/02/11"_qs);
        QCOMPARE(field(u"金額"_qs), u"70299"_qs);
    }

    void aRowIsToldByItsNumberAndPerson() {
        QCOMPARE(EstimateCsv::row(estimate(), takahashi()).whose, u"2024000013 髙橋　信二"_qs);
        QCOMPARE(EstimateCsv::row(estimate(), {}).whose, u"2024000013"_qs);
    }
};

HALVANE_TEST(EstimateCsvTest)
#include "EstimateCsvTest.moc"
