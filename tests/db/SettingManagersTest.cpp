#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/clsProfile.h"
#include "db/clsAssistManager.h"
#include "db/clsDbManager.h"
#include "db/clsOfficeManager.h"
#include "db/clsSysSettingManager.h"

class SettingManagersTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void everySettingOfTheSystemIsDelivered() {
        for (int No = 1; No <= 44; ++No) {
            clsSysSetting setting;
            QVERIFY2(gSysSettingManager.GetData(No, setting), qPrintable(QString::number(No)));
            QCOMPARE(setting.No, QString::number(No));
        }
    }

    void onlyTheValueOfASettingIsWritten() {
        clsSysSetting setting;
        QVERIFY(gSysSettingManager.GetData(3, setting));
        const QString item = setting.SetItem;
        setting.SetValue = u"12"_qs;
        setting.SetItem = u"changed"_qs;
        gSysSettingManager.SaveData(setting);
        QVERIFY(gSysSettingManager.GetData(3, setting));
        QCOMPARE(setting.SetValue, u"12"_qs);
        QCOMPARE(setting.SetItem, item);
        QCOMPARE(gSysSettingManager.value(3), u"12"_qs);
    }

    void severalSettingsAreWrittenTogether() {
        gSysSettingManager.SaveDataS({{u"33"_qs, {}, u"5"_qs, {}}, {u"34"_qs, {}, u"6"_qs, {}}});
        QList<clsSysSetting> list;
        gSysSettingManager.GetList(list, u"[No] IN (33,34)"_qs, u"[設定値] DESC"_qs);
        QCOMPARE(list.size(), 2);
        QCOMPARE(list.first().No, u"34"_qs);
    }

    void missingSettingIsTold() {
        clsSysSetting setting;
        QVERIFY(!gSysSettingManager.GetData(98, setting));
        QCOMPARE(gSysSettingManager.value(98, u"x"_qs), u"x"_qs);
        gSysSettingManager.SaveData({u"98"_qs, {}, u"1"_qs, {}});
        QVERIFY(!gSysSettingManager.GetData(98, setting));
    }

    void newListValueGetsItsNumber() {
        clsAssist value{{}, u"2"_qs, u"新"_qs, u"表示"_qs, u"説明"_qs};
        gAssistManager.SaveData(value);
        QVERIFY(value.AsstNo.toInt() > 0);
        clsAssist stored;
        QVERIFY(gAssistManager.GetData(value.AsstNo, stored));
        QCOMPARE(stored.AsstData, u"新"_qs);
        QCOMPARE(stored.AsstView, u"表示"_qs);
        stored.AsstMemo = u"他"_qs;
        gAssistManager.SaveData(stored);
        QCOMPARE(stored.AsstNo, value.AsstNo);
        QVERIFY(gAssistManager.GetData(value.AsstNo, stored));
        QCOMPARE(stored.AsstMemo, u"他"_qs);
        gAssistManager.DeleteData(value.AsstNo);
        QVERIFY(!gAssistManager.GetData(value.AsstNo, stored));
    }

    void failedListValueLeavesNothing() {
        const QString count = m_database->connection().scalar(u"SELECT COUNT(*) FROM [補助設定]"_qs);
        m_database->connection().onStatement = [](const QString& statement) {
            if (statement.contains(u"MAX("_qs)) throw AppError(u"stop"_qs);
        };
        clsAssist value{{}, u"2"_qs, u"新"_qs, {}, {}};
        QCOMPARE(raised([&] { gAssistManager.SaveData(value); }), u"stop"_qs);
        m_database->connection().onStatement = nullptr;
        QCOMPARE(m_database->connection().scalar(u"SELECT COUNT(*) FROM [補助設定]"_qs), count);
        QCOMPARE(m_database->connection().transactionDepth(), 0);
    }

    void groupsOfListValuesStandInOrder() {
        const QList<clsAssist> styles = gAssistManager.group(AssistGroup::PickStyle);
        QVERIFY(!styles.isEmpty());
        for (qsizetype i = 1; i < styles.size(); ++i)
            QVERIFY(styles.at(i - 1).AsstNo.toInt() < styles.at(i).AsstNo.toInt());
        QVERIFY(gAssistManager.group(987).isEmpty());
    }

    void officeIsReadAndWrittenUnderNumberOne() {
        clsOffice office;
        QVERIFY(gOfficeManager.GetData(1, office));
        QVERIFY(!gOfficeManager.GetData(2, office));
        office.office = u"義肢の𠮷田"_qs;
        office.ChkAcnt = u"当座 1'"_qs;
        gOfficeManager.SaveData(1, office);
        clsOffice stored;
        QVERIFY(gOfficeManager.GetData(1, stored));
        QCOMPARE(stored.office, office.office);
        QCOMPARE(stored.ChkAcnt, office.ChkAcnt);
        QCOMPARE(stored.Bank, office.Bank);
    }

    void programOpensTheDatabaseOfItsProfile() {
        m_database->writeProfile(u"ConnectionTimeout=2\r\n"_qs);
        clsDbManager manager;
        manager.DBOpen();
        QVERIFY(manager.isOpen());
        QCOMPARE(manager.Connection().scalar(u"SELECT COUNT(*) FROM [企業情報]"_qs), u"1"_qs);
        QCOMPARE(manager.Connection().settings().timeout, 2);
        manager.DBClose();
        manager.DBClose();
        QVERIFY(!manager.isOpen());
        QCOMPARE(raised([&] { manager.Connection(); }), u"データベースが開かれていません。"_qs);
    }

    void badProfileIsTold_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<qint64>("number");
        QTest::newRow("provider") << u"Provider=Other"_qs << AppError::Application;
        QTest::newRow("time-out") << u"ConnectionTimeout=abc"_qs << qint64(13);
        QTest::newRow("negative time-out") << u"ConnectionTimeout=-1"_qs << qint64(6);
        QTest::newRow("empty time-out") << u"ConnectionTimeout="_qs << qint64(13);
        QTest::newRow("time-out beyond its milliseconds") << u"ConnectionTimeout=2147484"_qs << qint64(6);
        QTest::newRow("huge time-out") << u"ConnectionTimeout=99999999999"_qs << qint64(6);
    }
    void badProfileIsTold() {
        QFETCH(QString, line);
        QFETCH(qint64, number);
        m_database->writeProfile();
        clsProfile().SaveValue(u"DB"_qs, line.section(u'=', 0, 0), line.section(u'=', 1));
        clsDbManager manager;
        const auto error = errorOf([&] { manager.DBOpen(); });
        QVERIFY(error);
        QCOMPARE(error->number(), number);
        QVERIFY2(error->description().contains(line.section(u'=', 0, 0)), qPrintable(error->description()));
        QVERIFY(!manager.isOpen());
    }

    void longestTimeOutIsTaken() {
        m_database->writeProfile(u"ConnectionTimeout=2147483\r\n"_qs);
        clsDbManager manager;
        manager.DBOpen();
        QCOMPARE(manager.Connection().scalar(u"SELECT COUNT(*) FROM [企業情報]"_qs), u"1"_qs);
    }

    void managersRefuseWorkWithoutADatabase() {
        clsSysSettingManager manager;
        clsSysSetting setting;
        QCOMPARE(raised([&] { manager.GetData(1, setting); }), u"データベースが開かれていません。"_qs);
    }

private:
    std::unique_ptr<TestDatabase> m_database;
};

HALVANE_TEST(SettingManagersTest)
#include "SettingManagersTest.moc"
