#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

#include "base/basMessage.h"
#include "operations/SystemProperties.h"

#include <QTest>

class SystemPropertiesTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestDatabase> m_database;

    static SystemProperties stored() {
        QString lacks;
        return SystemProperties::read(lacks).value();
    }
    QString value(int No) {
        return m_database->connection().scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = %1"_qs.arg(No));
    }

private slots:
    void init() {
        m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample);
        m_database->prepareManagers();
    }
    void cleanup() { m_database.reset(); }

    void settingsAreKnownByTheirNumbersWhateverIsMissing() {
        m_database->connection().execute(u"DELETE FROM [システム設定] WHERE [No] IN (4, 7)"_qs);
        SystemProperties properties = stored();
        QCOMPARE(properties.settings.value(20), value(20));
        properties.addMissing({3, 7, 44});
        QCOMPARE(properties.missing, QList<int>{7});
        QCOMPARE(properties.settings.value(7), u"1"_qs);
    }

    void aMissingRowIsMadeWhenSaved() {
        m_database->connection().execute(u"DELETE FROM [システム設定] WHERE [No] = 7"_qs);
        SystemProperties properties = stored();
        properties.addMissing({7});
        const SystemProperties before = properties;
        properties.settings[7] = u"2"_qs;
        properties.save(m_database->connection(), before);
        QCOMPARE(value(7), u"2"_qs);
        QCOMPARE(m_database->connection().scalar(u"SELECT [設定項目] FROM [システム設定] WHERE [No] = 7"_qs),
                 u"性別印刷"_qs);
    }

    void onlyWhatChangedIsWritten() {
        const SystemProperties before = stored();
        SystemProperties wanted = before;
        wanted.settings[3] = u"8"_qs;
        m_database->another()->execute(u"UPDATE [システム設定] SET [設定値] = '2031' WHERE [No] = 20"_qs);
        wanted.save(m_database->connection(), before);
        QCOMPARE(value(3), u"8"_qs);
        QCOMPARE(value(20), u"2031"_qs);
    }

    void officeAndSettingsNeverPart() {
        const SystemProperties before = stored();
        SystemProperties wanted = before;
        wanted.office.office = u"新しい名前"_qs;
        wanted.settings[3] = u"8"_qs;
        m_database->connection().onStatement = [](const QString& statement) {
            if (statement.contains(u"システム設定")) throw AppError(u"stop"_qs);
        };
        QCOMPARE(raised([&] { wanted.save(m_database->connection(), before); }), u"stop"_qs);
        m_database->connection().onStatement = nullptr;
        QVERIFY(stored() == before);
    }

    void aTableWithoutRowsIsNamed() {
        m_database->connection().execute(u"DELETE FROM [企業情報]"_qs);
        QString lacks;
        QVERIFY(!SystemProperties::read(lacks));
        QCOMPARE(lacks, u"自社情報"_qs);
        m_database->connection().execute(u"INSERT INTO [企業情報] ([番号]) VALUES (1)"_qs);
        m_database->connection().execute(u"DELETE FROM [システム設定]"_qs);
        QVERIFY(!SystemProperties::read(lacks));
        QCOMPARE(lacks, u"システム設定"_qs);
    }

    void wrongValuesAreToldByTheirNames_data() {
        QTest::addColumn<int>("No");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("message");
        QTest::newRow("no tax") << 3 << QString() << int(Message::EnterValue);
        QTest::newRow("tax above all") << 3 << u"101"_qs << int(Message::Invalid);
        QTest::newRow("tax with decimals") << 2 << u"7.8"_qs << 0;
        QTest::newRow("month") << 1 << u"13"_qs << int(Message::Invalid);
        QTest::newRow("year of two digits") << 20 << u"26"_qs << int(Message::Invalid);
        QTest::newRow("days") << 33 << u"1.5"_qs << int(Message::Invalid);
        QTest::newRow("no days") << 33 << QString() << 0;
        QTest::newRow("lines") << 13 << u"0"_qs << int(Message::Invalid);
        QTest::newRow("text") << 6 << u"abc"_qs << 0;
    }
    void wrongValuesAreToldByTheirNames() {
        QFETCH(int, No);
        QFETCH(QString, value);
        QFETCH(int, message);
        const SystemProperties before = stored();
        SystemProperties wanted = before;
        wanted.settings[No] = value;
        const auto complaint = wanted.complaintAgainst(before);
        QCOMPARE(complaint ? complaint->message : 0, message);
        if (complaint) QVERIFY(!complaint->name.isEmpty() && complaint->No == No);
    }

    void oddValuesOfOldAreNoObstacle() {
        m_database->connection().execute(u"UPDATE [システム設定] SET [設定値] = 'abc' WHERE [No] = 33"_qs);
        const SystemProperties before = stored();
        QVERIFY(!before.complaintAgainst(before));
    }
};

HALVANE_TEST(SystemPropertiesTest)
#include "SystemPropertiesTest.moc"
