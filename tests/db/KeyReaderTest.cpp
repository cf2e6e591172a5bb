#include "HalvaneTest.h"
#include "support/TestDatabase.h"

#include "db/KeyReader.h"

#include <QSignalSpy>

class KeyReaderTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_database;

    const QString m_all = u"SELECT [見積ID] FROM [顧客見積情報] ORDER BY [見積ID]"_qs;

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(TestDatabase::Contents::Sample); }
    void cleanupTestCase() { m_database.reset(); }

    void keysComeInTheOrderOfTheList() {
        KeyReader reader(m_database->settings());
        QSignalSpy begun(&reader, &KeyReader::begun), finished(&reader, &KeyReader::finished);
        reader.read(m_all);
        QVERIFY(reader.isReading());
        QVERIFY(finished.wait(patience));
        QCOMPARE(begun.size(), 1);
        QVERIFY(!reader.isReading());
        QCOMPARE(reader.count(), 120);
        QCOMPARE(reader.key(0), u"0000000001"_qs);
        QCOMPARE(reader.key(119), u"0000000120"_qs);
    }

    void noRowsAreAnAnswer() {
        KeyReader reader(m_database->settings());
        QSignalSpy begun(&reader, &KeyReader::begun), finished(&reader, &KeyReader::finished);
        reader.read(u"SELECT [見積ID] FROM [顧客見積情報] WHERE [見積ID] = ''"_qs);
        QVERIFY(finished.wait(patience));
        QCOMPARE(begun.size(), 1);
        QCOMPARE(reader.count(), 0);
    }

    void theLastAskedCounts() {
        KeyReader reader(m_database->settings());
        QSignalSpy finished(&reader, &KeyReader::finished);
        for (int i = 0; i < 20; ++i) reader.read(m_all);
        reader.read(u"SELECT [顧客ID] FROM [顧客情報] WHERE [顧客ID] = '00000001'"_qs);
        QVERIFY(finished.wait(patience));
        QCOMPARE(finished.size(), 1);
        QCOMPARE(reader.key(0), u"00000001"_qs);
    }

    void aFailureIsToldAndTheNextReadingWorks() {
        KeyReader reader(m_database->settings());
        QSignalSpy failed(&reader, &KeyReader::failed), finished(&reader, &KeyReader::finished);
        reader.read(u"SELECT nothing at all"_qs);
        QVERIFY(failed.wait(patience));
        QVERIFY(!reader.isReading());
        reader.read(m_all);
        QVERIFY(finished.wait(patience));
        QCOMPARE(reader.count(), 120);
    }

    // A reading must not keep others from writing, nor a reader that goes leave anything behind.
    void readersComeAndGo() {
        for (int i = 0; i < 200; ++i) {
            KeyReader reader(m_database->settings());
            reader.read(m_all);
            if (i % 3 == 0) QCoreApplication::processEvents();
        }
        m_database->connection().execute(u"UPDATE [顧客情報] SET [備考] = 'x' WHERE [顧客ID] = '00000001'"_qs);
    }
};

HALVANE_TEST(KeyReaderTest)
#include "KeyReaderTest.moc"
