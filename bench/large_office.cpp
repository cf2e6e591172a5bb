// Multiplies the estimates of the sample office in the database of an INI file, to see how the program does in a large
// one: large_office FILE.ini 100000
#include "base/AppError.h"
#include "base/clsProfile.h"
#include "db/Connection.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

const QStringList estimateTables{u"顧客見積情報"_qs, u"顧客見積種目"_qs, u"顧客見積基本製作要素"_qs,
                                 u"顧客見積完成要素"_qs, u"顧客見積請求"_qs};

// Copies the estimates whose number starts with two zeros, as all of the sample's do, under another start.
void repeat(Connection& connection, const QString& table, const QString& start) {
    QStringList names;
    for (const Schema::Column& column : Schema::table(table)->columns)
        if (column.name != u"見積ID") names << u'[' + column.name + u']';
    connection.execute(u"INSERT INTO [%1] ([見積ID], %2) SELECT '%3' & [見積ID], %2 FROM [%1] WHERE [見積ID] LIKE '00%'"_qs
                           .arg(table, names.join(u", "_qs), start));
}

qint64 estimates(Connection& connection) {
    return connection.scalar(u"SELECT COUNT(*) FROM [顧客見積情報]"_qs).toLongLong();
}

void enlarge(Connection& connection, qint64 wanted) {
    const qint64 sample = estimates(connection);
    Transaction transaction(connection);
    for (qint64 i = 36; (i - 35) * sample < wanted; ++i)
        for (const QString& table : estimateTables)
            repeat(connection, table, QString::number(i, 36).rightJustified(2, u'0'));
    transaction.commit();
    std::printf("%lld estimates\n", estimates(connection));
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 3) return 2;
    try {
        Connection connection(ConnectionSettings::fromProfile(clsProfile(QString::fromLocal8Bit(argv[1]))));
        connection.open();
        enlarge(connection, QString::fromLocal8Bit(argv[2]).toLongLong());
        return EXIT_SUCCESS;
    } catch (const AppError& error) {
        std::fprintf(stderr, "large_office: %s\n", qUtf8Printable(error.description()));
        return EXIT_FAILURE;
    }
}
