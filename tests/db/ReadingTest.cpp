#include "HalvaneTest.h"
#include "support/Raised.h"
#include "support/TestDatabase.h"

// Reading from one state of the database, and many rows at once.
class ReadingTest : public QObject {
    Q_OBJECT

private:
    static QString name(Connection& connection) { return connection.scalar(u"SELECT [企業名] FROM [企業情報]"_qs); }
    static void rename(Connection& connection, const QString& to) {
        connection.execute(u"UPDATE [企業情報] SET [企業名] = '%1'"_qs.arg(to));
    }

private slots:
    void oneStateIsReadWhateverOthersWrite() {
        TestDatabase database;
        rename(database.connection(), u"前"_qs);
        ConnectionSettings impatient = database.settings();
        impatient.timeout = 1;
        Connection other(impatient);
        other.open();
        {
            const Reading reading(database.connection());
            QCOMPARE(name(database.connection()), u"前"_qs);
            const auto failure = errorOf([&] { rename(other, u"後"_qs); });
            QCOMPARE(failure && isBusy(*failure), !TestDatabase::isPostgres()); // who writes to a file waits
            QCOMPARE(name(database.connection()), u"前"_qs);
        }
        QCOMPARE(name(database.connection()), TestDatabase::isPostgres() ? u"後"_qs : u"前"_qs);
        rename(other, u"後"_qs);
        QCOMPARE(name(database.connection()), u"後"_qs);
    }

    void readingEndsWithItsScopeAlsoAfterAFailure() {
        TestDatabase database;
        QVERIFY(!raised([&] {
                     const Reading reading(database.connection());
                     database.connection().query(u"SELECT * FROM [無い表]"_qs);
                 }).isEmpty());
        QCOMPARE(database.connection().transactionDepth(), 0);
        rename(database.connection(), u"後"_qs);
        QCOMPARE(name(database.connection()), u"後"_qs);
    }

    void rowsGoInManyAtOnce_data() {
        QTest::addColumn<qint64>("count");
        for (const qint64 count : {0, 1, 249, 250, 251, 1003}) QTest::addRow("%lld", count) << count;
    }
    void rowsGoInManyAtOnce() {
        QFETCH(qint64, count);
        TestDatabase database;
        Connection& connection = database.connection();
        connection.execute(u"DELETE FROM [郵便番号簿]"_qs);
        connection.insertRows(u"郵便番号簿"_qs, {u"郵便番号"_qs, u"町域名"_qs}, count, [](qint64 row) {
            return QStringList{QString::number(row), row % 2 ? QString() : u"町'\"\\𠮷%1"_qs.arg(row)};
        });
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [郵便番号簿]"_qs), QString::number(count));
        QCOMPARE(connection.scalar(u"SELECT COUNT(*) FROM [郵便番号簿] WHERE [町域名] IS NULL"_qs),
                 QString::number(count / 2));
        if (count > 0)
            QCOMPARE(connection.scalar(u"SELECT [町域名] FROM [郵便番号簿] WHERE [郵便番号] = '0'"_qs),
                     u"町'\"\\𠮷0"_qs);
    }
};

HALVANE_TEST(ReadingTest)
#include "ReadingTest.moc"
