#include "HalvaneTest.h"
#include "support/MasterSamples.h"
#include "support/MessageQueue.h"
#include "support/TestDatabase.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "db/clsDbManager.h"
#include "master/screens/frmMsEstimate.h"
#include "operations/Managers.h"
#include "ui/Grid.h"
#include "ui/Style.h"
#include "ui/TextField.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>

// The editor of master estimates by its controls: what stands on it under which name, and what its modes allow.
class MasterEditorTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<frmMsEstimate> m_screen;

    static Connection& connection() { return gDbManager.Connection(); }

    template <class Control> Control* control(const QString& name) {
        auto* found = m_screen->findChild<Control*>(name);
        if (!found) qFatal("no control %s", qPrintable(name));
        return found;
    }
    Grid* grid(const QString& name) { return control<Grid>(name); }
    QTabWidget* pages() { return control<QTabWidget>(u"tabMstEst"_qs); }
    QString shown(const QString& label) { return control<QLabel>(label)->text(); }
    void press(const QString& name) { control<QAbstractButton>(name)->click(); }

    bool open(qint16 mode, const QString& id = {}) {
        m_screen = std::make_unique<frmMsEstimate>();
        m_screen->EditMode = mode;
        m_screen->ProductId = id;
        if (!m_screen->Load()) return false;
        m_screen->show();
        QCoreApplication::processEvents();
        return true;
    }

    QString stored(const QString& code, int lines = 2) {
        MasterDraft draft = MasterSamples::master(code, lines);
        draft.master.Memo = u"備考"_qs;
        if (saveMaster(connection(), draft, [](const QString&) { return false; }) != MasterSave::Saved)
            qFatal("not stored");
        return draft.master.ProductId;
    }

    void edit(const QString& name, int row, int column, const QString& value) {
        Grid* cells = grid(name);
        const QString before = cells->value(row, column);
        cells->setValue(row, column, value);
        emit cells->cellEdited(row, column, before);
    }

    QString scalar(const QString& sql) { return connection().scalar(sql); }

private slots:
    void init() {
        Style::apply(*qApp);
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->writeProfile();
        m_database->prepareManagers();
        gPriceYear = u"2026"_qs;
        gDbManager.DBOpen();
        Managers::prepare(connection()); // as the program does
    }
    void cleanup() {
        m_screen.reset();
        Managers::release();
        gDbManager.DBClose();
        m_database.reset();
    }

    void everyControlHasItsName() {
        QVERIFY(open(frmMsEstimate::Add));
        QStringList names =
            u"fraHeader txtProductCd txtProductNm cmdAutoName txtMemo lblPriceBase lblModeTitle lblSubtotal1 "
            "lblSubtotal2 lblTax lblTaxTotal lblPriceSmall lblPriceMiddle lblPriceBig tabMstEst flxItem flxMkElm "
            "flxCpElm imgItem imtHosoku cmdExec cmdCancel cmdDel cmdClose cmdPrt_0 cmdPrt_1"_qs.split(u' ');
        for (int index = 1; index <= 3; ++index)
            for (const QString& name : u"cmdAdd cmdCopy cmdLineDel cmdAllDel cmdUp cmdDown"_qs.split(u' '))
                names << u"%1_%2"_qs.arg(name).arg(index);
        for (int index = 2; index <= 3; ++index)
            for (const QString& name :
                 u"cboSelectItem lblItemName lblItemIdx lblItem lblPickKbn lblSumPrice"_qs.split(u' '))
                names << u"%1_%2"_qs.arg(name).arg(index);
        for (const QString& name : names)
            QVERIFY2(m_screen->findChildren<QWidget*>(name).size() == 1, qUtf8Printable(name));
    }

    void gridsShowAllTiers() {
        QVERIFY(open(frmMsEstimate::Add));
        const auto titles = [this](const QString& name) {
            QStringList all;
            for (int i = 0; i < grid(name)->columns(); ++i)
                if (!grid(name)->isColumnHidden(i)) all << grid(name)->column(i).title;
            return all.join(u'|');
        };
        QCOMPARE(titles(u"flxItem"_qs), u"|一括選択|種目|採型区分|名称|型式|採型/採寸|交付/修理"_qs);
        QCOMPARE(titles(u"flxMkElm"_qs), u"|一括選択|製作要素|原材料等|数量|小人単価|小人価格|中人単価|中人価格|"
                                         "大人単価|大人価格"_qs);
        QCOMPARE(titles(u"flxCpElm"_qs), u"|一括選択|部品名称|部品型式|部品ｺｰﾄﾞ|ﾒｰｶｰ名|数量|マスタ価格|価格"_qs);
        QCOMPARE(grid(u"flxMkElm"_qs)->column(10).background, Style::computed);
        QVERIFY(!grid(u"flxMkElm"_qs)->column(8).background.isValid());
    }

    void modesNameAndAllowWhatTheyAreFor_data() {
        QTest::addColumn<qint16>("mode");
        QTest::addColumn<QString>("word");
        QTest::addColumn<bool>("changes");
        QTest::newRow("add") << qint16(0) << u"（追加）"_qs << true;
        QTest::newRow("edit") << qint16(1) << u"（編集）"_qs << true;
        QTest::newRow("delete") << qint16(2) << u"（削除）"_qs << false;
        QTest::newRow("copy") << qint16(5) << u"（追加）"_qs << true;
    }
    void modesNameAndAllowWhatTheyAreFor() {
        QFETCH(qint16, mode);
        QFETCH(QString, word);
        QFETCH(bool, changes);
        QVERIFY(open(mode, stored(u"T-1"_qs)));
        QCOMPARE(m_screen->windowTitle(), u"マスタ見積作成"_qs + word);
        QCOMPARE(shown(u"lblModeTitle"_qs), word);
        QCOMPARE(control<QWidget>(u"cmdExec"_qs)->isEnabled(), changes);
        QCOMPARE(control<QWidget>(u"cmdDel"_qs)->isEnabled(), !changes);
        QCOMPARE(control<QWidget>(u"txtProductCd"_qs)->isEnabled(), changes);
        QCOMPARE(control<QWidget>(u"flxItem"_qs)->isEnabled(), changes);
        QCOMPARE(control<TextField>(u"txtProductCd"_qs)->value(), mode == 0 ? QString() : u"T-1"_qs);
    }

    void withoutAnIdNothingOpens() {
        for (const qint16 mode : {1, 2, 5}) {
            MessageQueue messages;
            QVERIFY(!open(mode));
            QCOMPARE(messages.texts(), QStringList({u"製品IDが無効です。"_qs}));
        }
        MessageQueue messages;
        QVERIFY(!open(frmMsEstimate::Edit, u"999"_qs));
        QCOMPARE(messages.texts(), QStringList({u"マスタ見積が見つかりません。"_qs}));
    }

    void newOneIsOfThePriceYearInForce() {
        QVERIFY(open(frmMsEstimate::Add));
        QCOMPARE(shown(u"lblPriceBase"_qs), gPriceYear);
        m_screen.reset();
        const QString id = stored(u"T-1"_qs);
        connection().execute(u"UPDATE [マスタ見積情報] SET [価格設定年度] = '2019'"_qs);
        QVERIFY(open(frmMsEstimate::Edit, id));
        QCOMPARE(shown(u"lblPriceBase"_qs), u"2019"_qs);
    }

    void storedOneIsShownWithItsTotals() {
        QVERIFY(open(frmMsEstimate::Edit, stored(u"T-1"_qs, 10)));
        const qint32 tax = masterTotals(0, 0, 3000, masterTaxRate()).tax;
        QVERIFY(tax > 0);
        QCOMPARE(shown(u"lblSubtotal1"_qs), u"3,000"_qs);
        QCOMPARE(shown(u"lblPriceSmall"_qs).remove(u',').toInt(), 1000 + tax);
        QCOMPARE(shown(u"lblPriceMiddle"_qs).remove(u',').toInt(), 2000 + tax);
        QCOMPARE(shown(u"lblPriceBig"_qs).remove(u',').toInt(), 3000 + tax);
        QCOMPARE(control<QPlainTextEdit>(u"txtMemo"_qs)->toPlainText(), u"備考"_qs);
        QCOMPARE(grid(u"flxItem"_qs)->value(1, 1), u"52"_qs);
        pages()->setCurrentIndex(1);
        QCOMPARE(shown(u"lblSumPrice_2"_qs), u"3,000"_qs);
        QCOMPARE(grid(u"flxMkElm"_qs)->text(1, 10), u"300"_qs);
        QVERIFY(!grid(u"flxMkElm"_qs)->text(1, 9).isEmpty());
    }

    void lookingAtItIsNoChange() {
        QVERIFY(open(frmMsEstimate::Edit, stored(u"T-1"_qs)));
        for (int page = 0; page < 3; ++page) pages()->setCurrentIndex(page);
        MessageQueue messages;
        QVERIFY(m_screen->close());
        QVERIFY(messages.isEmpty());
        QVERIFY(!m_screen->Updated);
    }

    void quantityMultipliesThePriceOfThePriceList() {
        QVERIFY(open(frmMsEstimate::Add));
        edit(u"flxItem"_qs, 1, 1, u"52"_qs);
        QCOMPARE(grid(u"flxItem"_qs)->value(1, 6), u"1"_qs);
        pages()->setCurrentIndex(1);
        edit(u"flxMkElm"_qs, 1, 2, u"基本価格"_qs);
        Grid* lines = grid(u"flxMkElm"_qs);
        QCOMPARE(lines->value(1, 4), u"1"_qs);
        QVERIFY(lines->value(1, 9).toInt() > 0);
        edit(u"flxMkElm"_qs, 1, 4, u"3"_qs);
        for (const int amount : {6, 8, 10})
            QCOMPARE(lines->value(1, amount).toInt(), 3 * lines->value(1, amount - 1).toInt());
        QCOMPARE(shown(u"lblSumPrice_2"_qs), lines->text(1, 10));
    }

    void failedCheckLeavesTheFocusInTheField() {
        QVERIFY(open(frmMsEstimate::Add));
        QApplication::setActiveWindow(m_screen.get());
        MessageQueue messages;
        press(u"cmdExec"_qs);
        QVERIFY(control<QWidget>(u"txtProductCd"_qs)->hasFocus());
        control<TextField>(u"txtProductCd"_qs)->setValue(u"T-1"_qs);
        press(u"cmdExec"_qs);
        QVERIFY(control<QWidget>(u"txtProductNm"_qs)->hasFocus());
        QCOMPARE(messages.texts(), QStringList({u"製品コードを入力して下さい。"_qs, u"製品名称を入力して下さい。"_qs}));
        QVERIFY(!m_screen->Updated);
    }

    void copyIsStoredUnderItsOwnCodeAndThenEdited() {
        const QString original = stored(u"T-1"_qs);
        QVERIFY(open(frmMsEstimate::Copy, original));
        MessageQueue messages;
        press(u"cmdExec"_qs);
        control<TextField>(u"txtProductCd"_qs)->setValue(u"T-2"_qs);
        press(u"cmdExec"_qs);
        press(u"cmdExec"_qs);
        QCOMPARE(messages.texts(), QStringList({u"製品コードが重複しています。"_qs,
                                                u"製品コード:T-2 で新規登録しました。"_qs, u"保存しました。"_qs}));
        QVERIFY(m_screen->ProductId != original);
        QVERIFY(m_screen->Updated);
        QCOMPARE(m_screen->windowTitle(), u"マスタ見積作成（編集）"_qs);
        QCOMPARE(scalar(u"SELECT COUNT(*) FROM [マスタ見積情報] WHERE [製品コード] LIKE 'T-%'"_qs), u"2"_qs);
    }

    void deletedElsewhereBecomesANewOne() {
        const QString id = stored(u"T-1"_qs);
        QVERIFY(open(frmMsEstimate::Edit, id));
        m_database->another()->execute(u"DELETE FROM [マスタ見積情報] WHERE [製品ID] = '%1'"_qs.arg(id));
        MessageQueue messages;
        press(u"cmdExec"_qs);
        QCOMPARE(m_screen->windowTitle(), u"マスタ見積作成（追加）"_qs);
        QCOMPARE(control<TextField>(u"txtProductCd"_qs)->value(), u"T-1"_qs);
        press(u"cmdExec"_qs);
        QCOMPARE(messages.texts().last(), u"製品コード:T-1 で新規登録しました。"_qs);
        QCOMPARE(
            scalar(u"SELECT COUNT(*) FROM [マスタ見積基本製作要素] WHERE [製品ID] = '%1'"_qs.arg(m_screen->ProductId)),
            u"2"_qs);
    }

    // What is stored is read back before it is committed: it is stored and shown, or neither.
    void saveThatCannotBeReadBackIsNoneAndTheNextPressStoresOnce() {
        QVERIFY(open(frmMsEstimate::Add));
        control<TextField>(u"txtProductCd"_qs)->setValue(u"T-1"_qs);
        control<TextField>(u"txtProductNm"_qs)->setValue(u"名"_qs);
        edit(u"flxItem"_qs, 1, 1, u"52"_qs);
        pages()->setCurrentIndex(1);
        edit(u"flxMkElm"_qs, 1, 2, u"基本価格"_qs);
        bool stored = false;
        connection().onStatement = [&](const QString& statement) {
            if (statement.contains(u"INSERT INTO マスタ見積基本製作要素"_qs)) stored = true;
            const bool reloads = statement.startsWith(u"SELECT * FROM [マスタ見積種目]"_qs);
            if (stored && reloads) throw AppError(u"回線"_qs);
        };
        MessageQueue messages;
        press(u"cmdExec"_qs);
        connection().onStatement = {};
        QCOMPARE(messages.texts(), QStringList({u"回線"_qs}));
        const QString count = u"SELECT COUNT(*) FROM [マスタ見積情報] WHERE [製品コード] = 'T-1'"_qs;
        QCOMPARE(scalar(count), u"0"_qs);
        QVERIFY(!m_screen->Updated);
        QCOMPARE(m_screen->windowTitle(), u"マスタ見積作成（追加）"_qs);
        press(u"cmdExec"_qs);
        QCOMPARE(messages.texts().last(), u"製品コード:T-1 で新規登録しました。"_qs);
        QCOMPARE(scalar(count), u"1"_qs);
        QVERIFY(m_screen->Updated && m_screen->close());
    }

    void noKeyIsTakenTwice() {
        QVERIFY(open(frmMsEstimate::Add));
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

    void longValuesDoNotWidenTheScreen() {
        QVERIFY(open(frmMsEstimate::Add));
        const QSize before = m_screen->minimumSizeHint();
        QVERIFY(before.width() <= 1280 && before.height() <= 697);
        for (QLabel* label : m_screen->findChildren<QLabel*>())
            if (label->property("shownValue").toBool()) label->setText(QString(100, u'長'));
        QCoreApplication::processEvents();
        QCOMPARE(m_screen->minimumSizeHint(), before);
    }
};

HALVANE_TEST(MasterEditorTest)
#include "MasterEditorTest.moc"
