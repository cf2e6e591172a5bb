#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "estimates/screens/frmCsEstimate.h"
#include "ui/Grid.h"
#include "ui/Style.h"

#include <QAbstractButton>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTabWidget>

// The form of the estimate editor: what stands on it under which name, and that it can be read.
class EditorFormTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<frmCsEstimate> m_screen;

    QTabWidget* pages() { return m_screen->findChild<QTabWidget*>(u"tabCsEst"_qs); }

    Grid* grid(const QString& name) { return m_screen->findChild<Grid*>(name); }

    static QStringList shownTitles(const Grid* grid) {
        QStringList titles;
        for (int i = 0; i < grid->columns(); ++i)
            if (!grid->isColumnHidden(i)) titles << grid->column(i).title;
        return titles;
    }

    static QList<int> greyColumns(const Grid* grid) {
        QList<int> grey;
        for (int i = 0; i < grid->columns(); ++i)
            if (grid->column(i).background == Style::computed) grey << i;
        return grey;
    }

    // Names such as "cmdAdd_1..3" stand for each member.
    static QStringList members(const QString& names) {
        QStringList all;
        for (const QString& name : names.simplified().split(u' ')) {
            const auto range = QRegularExpression(u"^(.*_)(\\d)\\.\\.(\\d)$"_qs).match(name);
            if (!range.hasMatch()) {
                all << name;
                continue;
            }
            for (int i = range.captured(2).toInt(); i <= range.captured(3).toInt(); ++i)
                all << range.captured(1) + QString::number(i);
        }
        return all;
    }

private slots:
    void init() {
        Style::apply(*qApp);
        m_database = std::make_unique<TestDatabase>();
        m_database->writeProfile();
        m_database->prepareManagers();
        m_screen = std::make_unique<frmCsEstimate>();
        QVERIFY(m_screen->Load());
        m_screen->show();
        QCoreApplication::processEvents();
    }
    void cleanup() {
        m_screen.reset();
        m_database.reset();
    }

    void everyControlStandsOnItsPage_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("names");
        QTest::newRow("screen") << -1
                                << u"fraHeader lblCsNo lblCsId lblCsSubId lblName lblEstNo lblEstId txtEstName "
                                   "cmdAutoName lblStatus lblStNo lblPriceBase cmdPayNo lblModeTitle tabCsEst cmdExec "
                                   "cmdCancel cmdDel cmdNew cmdPrivateClear cmdClear cmdEstList cmdNewPrice cmdReCome "
                                   "cmdClose"_qs;
        QTest::newRow("basic") << 0
                               << u"fraData_0 fraCust txtName1 txtName2 txtKana1 txtKana2 idtBirth txtEra lblEra "
                                  "lblAge cboSex cboFamilyType txtInsured optIns_0..1 txtZip cmdSetZip cboPref cboCity "
                                  "txtAddr1 txtAddr2 txtTelNo txtFax lblEmail txtCsMemo lblPriceKbn flxIns lblChartNo "
                                  "txtChartCd cboLR txtDiseaseNm idtHospDate txtOrderCd txtOrderNm cboDoctor "
                                  "lblChartMemo txtGrantNo cmdCustSelect cmdChartSelect cmdOrderSelect fraProduct "
                                  "txtProductCd cmdProductSelect lblProductNm cboProducer numLifeYear idtLifeEnd "
                                  "lblCategory lblFrame numPartialPayment fraPrint cboCharge1 idtPickPtnDate2 "
                                  "idtDelvFinDate2 idtPayPrtDate2 cmdEtcPrt_2 cmdOpnPrt_2"_qs;
        const QString amounts = u" lblSubtotal1_%1 lblSubtotal2_%1 lblTax_%1 lblEstTotal_%1"_qs;
        const QString rows = u" cmdAdd_%1 cmdCopy_%1 cmdLineDel_%1 cmdAllDel_%1 cmdUp_%1 cmdDown_%1"_qs;
        const QString item = u" cboSelectItem_%1 lblItemIdx_%1 lblItem_%1 lblPickKbn_%1 lblItemName_%1 "
                             "lblSumPrice_%1"_qs;
        QTest::newRow("items") << 1
                               << u"fraData_1 flxItem cmdInsEstMst imgItem imtHosoku"_qs + rows.arg(1) + amounts.arg(0);
        QTest::newRow("make elements") << 2 << u"fraData_2 flxMkElm"_qs + item.arg(2) + rows.arg(2) + amounts.arg(1);
        QTest::newRow("parts") << 3 << u"fraData_3 flxCpElm"_qs + item.arg(3) + rows.arg(3) + amounts.arg(2);
        QTest::newRow("schedule") << 4
                                  << u"fraData_4 idtRecvDate idtEstDate idtTickRsvDate idtPickPtnDate idtTmpSetPlnDate "
                                     "idtTmpSetFinDate idtCmpltPlnDate idtCmpltFinDate idtDelvPlnDate idtDelvFinDate "
                                     "idtAskPlnDate idtAskFinDate idtPayInPlnDate idtPayInFinDate cboDiscount1 "
                                     "cboDiscount2 cboDiscount3 cboTax txtEstMemo"_qs +
                                         amounts.arg(3);
        QTest::newRow("printing") << 5
                                  << u"fraData_5 flxPrint idtEstPrtDate idtItmPrtDate idtDtlPrtDate numAskPrice_0..3 "
                                     "cmdCalcPrice_0..3 idtAskPrtDate_0..3 cmdMovePrice_0..3 numPayPrice_0..3 "
                                     "idtPayDate_0..3 idtPayPrtDate_0..3 lblClaim_0..3 lblAskPrice lblPayPrice "
                                     "lblAskDiff lblPayDiff fraRcvMark optRcvMark_0..1 lblOpnDate1 lblOpnDate2 "
                                     "cmdEtcPrt_0..1 cmdOpnPrt_0..1"_qs +
                                         amounts.arg(4);
    }

    void everyControlStandsOnItsPage() {
        QFETCH(int, page);
        QFETCH(QString, names);
        const QWidget* ground = page < 0 ? m_screen.get() : pages()->widget(page);
        for (const QString& name : members(names))
            QVERIFY2(ground->findChildren<QWidget*>(name).size() == 1, qUtf8Printable(name));
    }

    void noNameStandsTwice() {
        QHash<QString, int> seen;
        for (const QWidget* control : m_screen->findChildren<QWidget*>()) {
            const QString name = control->objectName();
            if (name.isEmpty() || name.startsWith(u"qt_")) continue;
            QVERIFY2(++seen[name] == 1, qUtf8Printable(name));
        }
    }

    void pagesCarryTheirTitles() {
        QStringList titles;
        for (int page = 0; page < pages()->count(); ++page) titles << pages()->tabText(page);
        QCOMPARE(titles.join(u'|'), u"基本情報|種目|基本・製作要素|完成要素|作業予定・金額計算|帳票印刷"_qs);
    }

    void gridsHaveTheirColumns() {
        QCOMPARE(shownTitles(grid(u"flxItem"_qs)).join(u'|'),
                 u"|一括選択|種目|採型区分|名称|型式|採型/採寸|交付/修理"_qs);
        QCOMPARE(shownTitles(grid(u"flxMkElm"_qs)).join(u'|'), u"|一括選択|製作要素|原材料等|数量|価格"_qs);
        QCOMPARE(shownTitles(grid(u"flxCpElm"_qs)).join(u'|'),
                 u"|一括選択|部品名称|部品型式|部品ｺｰﾄﾞ|ﾒｰｶｰ名|数量|価格"_qs);
        QCOMPARE(shownTitles(grid(u"flxIns"_qs)).join(u'|'), u"保険名|請求先ｺｰﾄﾞ|請求先"_qs);
        QCOMPARE(shownTitles(grid(u"flxPrint"_qs)).join(u'|'), u"|見積書|内訳書|明細書|請求書|領収書|法別|請求先"_qs);
    }

    void computedColumnsAreGrey() {
        QCOMPARE(greyColumns(grid(u"flxItem"_qs)), QList<int>());
        QCOMPARE(greyColumns(grid(u"flxMkElm"_qs)), QList<int>({6}));
        QCOMPARE(greyColumns(grid(u"flxCpElm"_qs)), QList<int>({5, 8}));
        QCOMPARE(greyColumns(grid(u"flxPrint"_qs)), QList<int>({6, 7}));
    }

    void gridsHaveTheirRows() {
        QCOMPARE(grid(u"flxItem"_qs)->rows(), 5);
        QCOMPARE(grid(u"flxMkElm"_qs)->rows(), 50);
        QCOMPARE(grid(u"flxCpElm"_qs)->rows(), 50);
        QCOMPARE(grid(u"flxIns"_qs)->rows(), 4);
        QCOMPARE(grid(u"flxPrint"_qs)->rows(), 4);
    }

    // Each key once on what can be seen together.
    void noKeyIsTakenTwice() {
        for (int page = 0; page < pages()->count(); ++page) {
            pages()->setCurrentIndex(page);
            QSet<QString> taken;
            for (const QAbstractButton* button : m_screen->findChildren<QAbstractButton*>()) {
                const QString key = button->shortcut().toString();
                if (key.isEmpty() || !button->isVisible()) continue;
                QVERIFY2(!taken.contains(key), qUtf8Printable(button->objectName() + u' ' + key));
                taken.insert(key);
            }
        }
    }

    void altAndANumberTurnThePages() {
        QApplication::setActiveWindow(m_screen.get());
        for (int page = pages()->count() - 1; page >= 0; --page) {
            QTest::keyClick(m_screen.get(), static_cast<Qt::Key>(Qt::Key_1 + page), Qt::AltModifier);
            QCOMPARE(pages()->currentIndex(), page);
        }
    }

    void fitsTheSmallestDisplay() {
        QVERIFY(m_screen->minimumSizeHint().width() <= 1280);
        QVERIFY(m_screen->minimumSizeHint().height() <= 697); // of 768, less title and task bar
    }

    void thePrintGridIsEnteredAtItsFirstTick() {
        pages()->setCurrentIndex(5);
        QCOMPARE(grid(u"flxPrint"_qs)->currentRow(), 1);
        QCOMPARE(grid(u"flxPrint"_qs)->currentColumn(), 1);
    }

    void pictureAndHelpTextStandOnlyWhereThereAreAny() {
        const auto shown = [this](const QString& name) {
            return m_screen->findChild<QWidget*>(name)->isVisibleTo(pages()->widget(1));
        };
        m_database->writeProfile(
            u"[Image]\r\nPath=%1\r\nType=png\r\n[Text]\r\nPath=%1\r\nType=txt\r\n"_qs.arg(m_database->folder()));
        QImage drawing(3000, 2000, QImage::Format_RGB32);
        drawing.fill(Qt::white);
        QVERIFY(drawing.save(m_database->folder() + u"/下肢装具.png"_qs));
        QFile help(m_database->folder() + u"/靴型装具.txt"_qs);
        QVERIFY(help.open(QIODevice::WriteOnly) && help.write("半長靴") > 0);
        help.close();
        const QSize before = m_screen->minimumSizeHint();
        Grid* items = grid(u"flxItem"_qs);
        items->setValue(2, 2, u"下肢装具"_qs);
        items->setValue(3, 2, u"靴型装具"_qs);
        QVERIFY(!shown(u"fraItemImage"_qs) && !shown(u"fraItemHelp"_qs));
        items->setCurrent(2);
        QVERIFY(shown(u"imgItem"_qs) && !shown(u"imtHosoku"_qs));
        items->setCurrent(3);
        QVERIFY(!shown(u"imgItem"_qs) && shown(u"imtHosoku"_qs));
        items->setCurrent(4);
        QVERIFY(!shown(u"fraItemImage"_qs) && !shown(u"fraItemHelp"_qs));
        QCoreApplication::processEvents();
        QCOMPARE(m_screen->minimumSizeHint(), before);
    }

    void noCaptionIsCutOff() {
        for (int page = 0; page < pages()->count(); ++page) {
            pages()->setCurrentIndex(page);
            QCoreApplication::processEvents();
            for (const QWidget* control : m_screen->findChildren<QWidget*>()) {
                const bool captioned =
                    qobject_cast<const QAbstractButton*>(control) || qobject_cast<const QLabel*>(control);
                if (!captioned || !control->isVisible() || control->objectName().isEmpty()) continue;
                QVERIFY2(control->width() >= control->minimumSizeHint().width(), qUtf8Printable(control->objectName()));
            }
        }
    }

    void longValuesDoNotWidenTheScreen() {
        const QSize before = m_screen->minimumSizeHint();
        for (QLabel* label : m_screen->findChildren<QLabel*>())
            if (label->property("shownValue").toBool()) label->setText(QString(100, u'長'));
        QCoreApplication::processEvents();
        QCOMPARE(m_screen->minimumSizeHint(), before);
    }
};

HALVANE_TEST(EditorFormTest)
#include "EditorFormTest.moc"
