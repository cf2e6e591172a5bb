#include "HalvaneTest.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "customers/screens/frmCsUpdConf.h"
#include "ui/Grid.h"

#include <QPushButton>
#include <QTimer>

class frmCsUpdConfTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    enum Column { Title, Stored, Typed, Mark };

    static clsCustomer stored() {
        clsCustomer customer;
        customer.CustId = u"00000001"_qs;
        customer.CustSubId = u"1"_qs;
        customer.CustNo = u"20240001"_qs;
        customer.CustNm1 = u"青木"_qs;
        customer.CustNm2 = u"義男"_qs;
        customer.Birth = u"1948/02/11"_qs;
        customer.Pref = u"愛知県"_qs;
        customer.FamilyType = u"1"_qs;
        customer.Memo = u"一行目\n二行目"_qs;
        return customer;
    }

    // Opens the question, lets the operator answer it and gives the answer.
    static CustomerUpdate ask(const clsCustomer& typed, std::function<void(QWidget*)> work) {
        QTimer::singleShot(0, [work = std::move(work)] { work(QApplication::activeModalWidget()); });
        return frmCsUpdConf::ask(nullptr, stored(), typed);
    }

    static CustomerUpdate press(const QString& button) {
        return ask(stored(), [&](QWidget* screen) { screen->findChild<QPushButton*>(button)->click(); });
    }

    static QStringList markedTitles(QWidget* screen) {
        const auto* grid = screen->findChild<Grid*>(u"flxCust"_qs);
        QStringList titles;
        for (int row = 1; row <= grid->rows(); ++row)
            if (!grid->text(row, Mark).isEmpty()) titles << grid->text(row, Title);
        return titles;
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void showsSeventeenFieldsInTheirOrder() {
        ask(stored(), [](QWidget* screen) {
            QCOMPARE(screen->windowTitle(), u"顧客登録確認"_qs);
            const auto* grid = screen->findChild<Grid*>(u"flxCust"_qs);
            QCOMPARE(grid->column(Stored).title, u"マスタ"_qs);
            QCOMPARE(grid->column(Typed).title, u"入力"_qs);
            QStringList titles;
            for (int row = 1; row <= grid->rows(); ++row) titles << grid->text(row, Title);
            QCOMPARE(titles.join(u'|'),
                     u"顧客番号|名前（姓）|名前（名）|ﾌﾘｶﾞﾅ（姓）|ﾌﾘｶﾞﾅ（名）|生年月日|性別|郵便番号|都道府県|"
                     u"市区郡|住所1|住所2|電話|FAX|被保険者名|本人区分|備考"_qs);
            screen->close();
        });
    }

    void showsBothValuesAndTheNameOfTheFamilyType() {
        clsCustomer typed = stored();
        typed.CustNm1 = u"青山"_qs;
        typed.FamilyType = u"2"_qs;
        ask(typed, [](QWidget* screen) {
            const auto* grid = screen->findChild<Grid*>(u"flxCust"_qs);
            QCOMPARE(grid->text(2, Stored), u"青木"_qs);
            QCOMPARE(grid->text(2, Typed), u"青山"_qs);
            QCOMPARE(grid->text(16, Stored), u"本人"_qs);
            QCOMPARE(grid->text(16, Typed), u"家族"_qs);
            screen->close();
        });
    }

    void marksExactlyTheDifferingRows() {
        clsCustomer typed = stored();
        typed.CustNm2 = u"義雄"_qs;
        typed.Tel = u"00-0000-3011"_qs;
        typed.Memo = u"一行目"_qs;
        typed.Pref += u"  "_qs; // blanks at the end are no difference
        typed.mail = u"a@example.jp"_qs;
        typed.PriceType = u"小人"_qs;
        ask(typed, [](QWidget* screen) {
            QCOMPARE(markedTitles(screen), QStringList({u"名前（名）"_qs, u"電話"_qs, u"備考"_qs}));
            screen->close();
        });
    }

    void equalCustomersHaveNoMark() {
        ask(stored(), [](QWidget* screen) {
            QVERIFY(markedTitles(screen).isEmpty());
            screen->close();
        });
    }

    void eachButtonGivesItsChoice() {
        QCOMPARE(press(u"cmdUpdMode_3"_qs), CustomerUpdate::NewCustomer);
        QCOMPARE(press(u"cmdUpdMode_2"_qs), CustomerUpdate::NewBranch);
        QCOMPARE(press(u"cmdUpdMode_1"_qs), CustomerUpdate::Overwrite);
    }

    void buttonsCarryTheirCaptions() {
        ask(stored(), [](QWidget* screen) {
            QCOMPARE(screen->findChild<QPushButton*>(u"cmdUpdMode_3"_qs)->text(), u"新規顧客登録"_qs);
            QCOMPARE(screen->findChild<QPushButton*>(u"cmdUpdMode_2"_qs)->text(), u"枝番管理"_qs);
            QCOMPARE(screen->findChild<QPushButton*>(u"cmdUpdMode_1"_qs)->text(), u"既存顧客更新"_qs);
            screen->close();
        });
    }

    void closingByTheFrameChoosesNothing() {
        QCOMPARE(ask(stored(), [](QWidget* screen) { screen->close(); }), CustomerUpdate::Closed);
    }

    void escapeChoosesNothing() {
        QCOMPARE(ask(stored(), [](QWidget* screen) { QTest::keyClick(screen, Qt::Key_Escape); }),
                 CustomerUpdate::Closed);
    }

    void returnInTheGridChoosesNothing() {
        const auto choice = ask(stored(), [](QWidget* screen) {
            QTest::keyClick(screen->findChild<Grid*>(u"flxCust"_qs), Qt::Key_Return);
            QVERIFY(screen->isVisible());
            screen->close();
        });
        QCOMPARE(choice, CustomerUpdate::Closed);
    }
};

HALVANE_TEST(frmCsUpdConfTest)
#include "frmCsUpdConfTest.moc"
