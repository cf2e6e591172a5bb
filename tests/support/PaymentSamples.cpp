#include "support/PaymentSamples.h"

#include <QDate>
#include <QRandomGenerator>

namespace {

constexpr int rowsPerStatement = 200;
const QStringList statuses{u"1"_qs, u"2"_qs, u"3"_qs, u"4"_qs, u"5"_qs, u"9"_qs, u"99"_qs};
const QStringList laws{u"1"_qs, u"2"_qs, u"3"_qs, u"9"_qs, u"10"_qs, u"11"_qs, u"14"_qs, u"99"_qs};

// Rows on their way into one table; an empty value is NULL.
class Rows {
public:
    Rows(Connection& connection, const QString& table, const QStringList& columns)
        : m_connection(connection),
          m_head(u"INSERT INTO \"%1\" (\"%2\") VALUES "_qs.arg(table, columns.join(u"\", \""_qs))) {}
    ~Rows() { write(); }

    void add(const QStringList& values) {
        QStringList quoted;
        for (const QString& value : values) quoted << (value.isEmpty() ? u"NULL"_qs : u'\'' + value + u'\'');
        m_rows << u'(' + quoted.join(u", "_qs) + u')';
        if (m_rows.size() == rowsPerStatement) write();
    }
    void write() {
        if (!m_rows.isEmpty()) m_connection.engineExecute(m_head + m_rows.join(u", "_qs));
        m_rows.clear();
    }

private:
    Connection& m_connection;
    QString m_head;
    QStringList m_rows;
};

struct Case {
    QString id, branch, number;
};

QList<Case> casesOf(Connection& connection) {
    QList<Case> cases;
    Recordset rows = connection.query(u"SELECT [顧客ID], [顧客枝番], [カルテNo] FROM [顧客カルテ] "
                                      u"ORDER BY [顧客ID], [顧客枝番], [カルテNo]"_qs);
    while (rows.next()) cases << Case{rows.value(0), rows.value(1), rows.value(2)};
    return cases;
}

} // namespace

QString PaymentSamples::idOf(int order) { return u'R' + QString::number(order).rightJustified(9, u'0'); }

void PaymentSamples::addOrders(Connection& connection, int count, quint32 seed) {
    QRandomGenerator random(seed);
    const auto pick = [&random](const auto& all) { return all.at(random.bounded(static_cast<int>(all.size()))); };
    const auto day = [&random] {
        const QDate date = QDate(2026, 1, 1).addDays(random.bounded(365));
        return random.bounded(5) == 0 ? QString() : date.toString(u"yyyy/MM/dd"_qs);
    };
    const QList<Case> cases = casesOf(connection);
    Transaction transaction(connection);
    Rows orders(connection, u"顧客見積情報"_qs,
                {u"見積ID"_qs, u"見積番号"_qs, u"顧客ID"_qs, u"顧客枝番"_qs, u"カルテNo"_qs, u"見積名称"_qs,
                 u"処理区分"_qs, u"受付日"_qs, u"仮合予定日"_qs, u"完成予定日"_qs, u"納品予定日"_qs, u"完成実績日"_qs,
                 u"納品実績日"_qs, u"請求完了日"_qs, u"入金完了日"_qs, u"製作担当者"_qs, u"見積総合計"_qs, u"値引額"_qs,
                 u"売掛区分"_qs});
    Rows claims(connection, u"顧客見積請求"_qs,
                {u"見積ID"_qs, u"請求No"_qs, u"法別No"_qs, u"請求先"_qs, u"請求金額"_qs, u"領収金額"_qs, u"入金日"_qs});
    for (int i = 1; i <= count; ++i) {
        const Case each = pick(cases);
        const QString status = pick(statuses);
        orders.add({idOf(i), u"9"_qs + QString::number(i).rightJustified(9, u'0'), each.id, each.branch, each.number,
                    u"(交付)右短下肢装具採型"_qs, status, day(), day(), day(), day(), day(), day(), day(),
                    status == u"1" ? u"2026/11/20"_qs : QString(), u"有田　工"_qs,
                    QString::number(1000 + random.bounded(500'000)),
                    random.bounded(4) == 0 ? QString::number(random.bounded(1000)) : QString(),
                    pick(QStringList{u"Ⅰ"_qs, u"Ⅱ"_qs, {}})});
        for (int claim = 1, last = random.bounded(7); claim <= last; ++claim) {
            const bool paid = random.bounded(2) == 0;
            claims.add({idOf(i), QString::number(claim), pick(laws), u"みほん市障害福祉課"_qs,
                        QString::number(1000 + random.bounded(100'000)),
                        paid ? QString::number(1000 + random.bounded(100'000)) : QString(), paid ? day() : QString()});
        }
    }
    orders.write();
    claims.write();
    transaction.commit();
}

void PaymentSamples::makeAllUnpaid(Connection& connection) {
    connection.execute(u"UPDATE [顧客見積情報] SET [処理区分] = 2, [入金完了日] = NULL"_qs);
    connection.execute(u"UPDATE [顧客見積請求] SET [入金日] = NULL"_qs);
}
