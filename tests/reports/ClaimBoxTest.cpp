#include "HalvaneTest.h"

#include "reports/ClaimBox.h"

namespace {

const InsNames& names() {
    static const InsNames names{{u"1"_qs, u"社会保険"_qs}, {u"2"_qs, u"国保"_qs},        {u"3"_qs, u"後期高齢"_qs},
                                {u"4"_qs, u"共済"_qs},     {u"11"_qs, u"身体障害者"_qs}, {u"13"_qs, u"児童福祉"_qs},
                                {u"99"_qs, u"自己負担"_qs}};
    return names;
}

// "1:100 99:50" as claims with 法別No and claimed amount.
QList<clsCsEstAsk> claims(const QString& words) {
    QList<clsCsEstAsk> made;
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
        clsCsEstAsk claim;
        claim.AskNo = QString::number(made.size() + 1);
        claim.InsNo = word.section(u':', 0, 0);
        claim.AskPrice = word.section(u':', 1, 1);
        claim.PayPrice = word.section(u':', 2, 2);
        made.append(claim);
    }
    return made;
}

QString spelled(const ClaimBox& box) {
    QStringList words;
    for (const ClaimBox::Place& place : box.places)
        words.append(place.name + u'=' + (place.amount ? place.amount->toText() : u"-"_qs));
    return words.join(u' ');
}

} // namespace

class ClaimBoxTest : public QObject {
    Q_OBJECT

private slots:
    void threeInsurersAndSelfPayFillAllFourPlaces() {
        QCOMPARE(spelled(claimBox(claims(u"1:100 99:50 2:200 3:300"_qs), names(), false)),
                 u"社会保険=100 国保=200 後期高齢=300 自己負担=50"_qs);
    }

    void theFourthInsurerIsNotShown() {
        QCOMPARE(spelled(claimBox(claims(u"1:100 2:200 3:300 4:400"_qs), names(), false)),
                 u"社会保険=100 国保=200 後期高齢=300 自己負担=-"_qs);
    }

    void withoutSelfPayItsPlaceHasNoAmount() {
        QCOMPARE(spelled(claimBox(claims(u"1:100"_qs), names(), false)), u"社会保険=100 =- =- 自己負担=-"_qs);
        QCOMPARE(spelled(claimBox(claims(u"1:100 99:0"_qs), names(), false)), u"社会保険=100 =- =- 自己負担=0"_qs);
    }

    void turnedOffWithSelfPayAloneTheBoxIsEmpty() {
        QCOMPARE(spelled(claimBox(claims(u"99:500"_qs), names(), true)), u"=- =- =- =-"_qs);
    }

    void turnedOffTheWelfareLawsAndTheirSelfPayAreShown_data() {
        QTest::addColumn<QString>("claimed");
        QTest::addColumn<QString>("box");
        QTest::newRow("disabled person") << u"1:100 11:200 99:50"_qs << u"身体障害者=200 =- =- 自己負担=50"_qs;
        QTest::newRow("child") << u"13:300 99:70"_qs << u"児童福祉=300 =- =- 自己負担=70"_qs;
        QTest::newRow("without self-pay") << u"13:300"_qs << u"児童福祉=300 =- =- =-"_qs;
        QTest::newRow("others only") << u"1:100 2:200"_qs << u"=- =- =- =-"_qs;
    }
    void turnedOffTheWelfareLawsAndTheirSelfPayAreShown() {
        QFETCH(QString, claimed);
        QTEST(spelled(claimBox(claims(claimed), names(), true)), "box");
    }

    void severalSelfPaysAddUp() {
        QCOMPARE(spelled(claimBox(claims(u"99:100 99:23"_qs), names(), false)), u"=- =- =- 自己負担=123"_qs);
    }

    void theReceiptNumberHasASuffixFromTwoPaymentsOn_data() {
        QTest::addColumn<QString>("paid");
        QTest::addColumn<QString>("suffix"); // of the last claim
        QTest::newRow("one payment") << u"1:100:0 99:50:50"_qs << QString();
        QTest::newRow("two payments") << u"99:50:50 1:100:100"_qs << u"-社会保険"_qs;
        QTest::newRow("self-pay") << u"1:100:100 99:50:50"_qs << u"-自費"_qs;
        QTest::newRow("nothing paid") << u"1:100 99:50"_qs << QString();
    }
    void theReceiptNumberHasASuffixFromTwoPaymentsOn() {
        QFETCH(QString, paid);
        const QList<clsCsEstAsk> all = claims(paid);
        QTEST(receiptNumberSuffix(all.last(), all, names()), "suffix");
    }
};

HALVANE_TEST(ClaimBoxTest)
#include "ClaimBoxTest.moc"
