#include "payments/Ledger.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "payments/PaymentWords.h"
#include "payments/WriteUnchanged.h"

namespace {

constexpr qsizetype claimsShown = 4;

struct DayKind {
    QString clsCsEstimate::*date; // none: of the claims
    QString word;
};

const QList<DayKind>& dayKinds() {
    static const QList<DayKind> kinds{{&clsCsEstimate::RecvDate, u"受　付　日："_qs},
                                      {&clsCsEstimate::AskFinDate, u"請　求　日："_qs},
                                      {&clsCsEstimate::DelvFinDate, u"納　品　日："_qs},
                                      {nullptr, u"入　金　日："_qs}};
    return kinds;
}

SqlTerm paidThen(const LedgerSearch& search) {
    if (search.day != LedgerSearch::Paid) return {};
    return SqlPeriod(gCsEstAskManager.column(&clsCsEstAsk::PayDate), search.DateFrom, search.DateTo);
}

SqlTerm ofPeriod(const LedgerSearch& search) {
    if (search.day != LedgerSearch::Paid)
        return SqlPeriod(gCsEstimateManager.column(dayKinds().at(search.day).date), search.DateFrom, search.DateTo);
    const QString claims = SqlSelect(u"SELECT [顧客見積請求].[見積ID] FROM [顧客見積請求]"_qs, paidThen(search));
    return gCsEstimateManager.byKey().wrapped({}, u" IN ("_qs + claims + u')');
}

QString orZero(const QString& value) { return u"IIF(ISNULL(%1), 0, %1)"_qs.arg(value); }

SqlTerm ofBalance(const LedgerSearch& search) {
    if (search.balance == LedgerSearch::AnyBalance) return {};
    const QString received =
        SqlSelect(u"SELECT SUM([顧客見積請求].[領収金額]) FROM [顧客見積請求]"_qs,
                  SqlAllOf({SqlTerm(u"[顧客見積請求].[見積ID] = [顧客見積情報].[見積ID]"_qs, {}), paidThen(search)}));
    const SqlColumn total = gCsEstimateManager.column(&clsCsEstimate::EstSum);
    const SqlColumn discount = gCsEstimateManager.column(&clsCsEstimate::Discount);
    const QString due = orZero(SqlTerm(total).text()) + u" - "_qs + orZero(SqlTerm(discount).text()) + u" - "_qs +
                        orZero(u'(' + received + u')');
    return {due + (search.balance == LedgerSearch::Owing ? u" > 0"_qs : u" <= 0"_qs), {total, discount}};
}

bool counts(const clsCsEstAsk& claim, const LedgerSearch& search) {
    if (search.day != LedgerSearch::Paid) return true;
    const auto bounded = [&claim](const QString& bound, bool isFirst) {
        const auto day = parseDate(claim.PayDate), end = parseDate(bound);
        return !end || (day && (isFirst ? *day >= *end : *day <= *end));
    };
    return bounded(search.DateFrom, true) && bounded(search.DateTo, false);
}

QString lawNames(const QList<clsCsEstAsk>& claims, const PaymentRows& names) {
    QMap<int, QString> laws;
    for (const clsCsEstAsk& claim : claims)
        if (const QString name = names.lawName(claim.InsNo); !name.isEmpty()) laws.insert(claim.InsNo.toInt(), name);
    return QStringList(laws.values()).join(u',');
}

QString day(const QString& date) { return formatDate(date, u"yyyy/mm/dd"_qs); }

} // namespace

SqlTerm Ledger::condition(const LedgerSearch& search) {
    const QString book = bookName(search.book);
    return SqlAllOf({ofPeriod(search),
                     book.isEmpty() ? SqlTerm() : gCsEstimateManager.equal(&clsCsEstimate::Urikake, book),
                     ofBalance(search)});
}

QString Ledger::bookName(LedgerSearch::Book book) {
    return book == LedgerSearch::FirstBook ? u"Ⅰ"_qs : book == LedgerSearch::SecondBook ? u"Ⅱ"_qs : QString();
}

QStringList Ledger::cells(PaymentRow row, const LedgerSearch& search, const PaymentRows& names) {
    const QString laws = lawNames(row.claims, names);
    row.claims.removeIf([&search](const clsCsEstAsk& claim) { return !counts(claim, search); });
    const clsCsEstimate& estimate = row.estimate;
    QStringList cells{estimate.EstId,
                      estimate.ProducerNm,
                      estimate.EstNo,
                      row.customerName(),
                      row.chart.OrderNm,
                      row.chart.DoctorNm,
                      estimate.EstNm,
                      estimate.EquipMent,
                      estimate.Articles,
                      day(estimate.RecvDate),
                      estimate.EstSum,
                      laws,
                      day(estimate.TmpSetPlnDate),
                      day(estimate.DelvPlnDate),
                      day(estimate.TickRsvDate),
                      day(estimate.DelvFinDate),
                      day(estimate.AskFinDate),
                      row.asked().toText(),
                      day(estimate.PayInFinDate),
                      estimate.Payment,
                      row.received().toText(),
                      estimate.Discount,
                      {},
                      estimate.Urikake};
    cells[Remaining] = remaining(cells);
    for (const clsCsEstAsk& claim : row.claims.first(qMin(row.claims.size(), claimsShown)))
        cells << day(claim.PayDate) << claim.PayPrice;
    while (cells.size() < Columns) cells << QString();
    return cells;
}

QString Ledger::remaining(const QStringList& cells) {
    const auto amount = [&cells](Column column) { return Money::leadingNumber(cells.at(column)); };
    return (amount(EstPrice) - amount(PayPrice) - amount(Discount)).toText();
}

QList<QStringList> Ledger::fileHeads(const LedgerSearch& search) {
    static const QStringList balances{u"全部"_qs, u"あり"_qs, u"なし"_qs};
    const QString book = bookName(search.book);
    return {{u"台帳："_qs + (book.isEmpty() ? u"全部"_qs : book)},
            {u"残高："_qs + balances.at(search.balance)},
            {dayKinds().at(search.day).word + periodInEra(search.DateFrom, search.DateTo)}};
}

QString Ledger::stateOf(const clsCsEstimate& estimate) {
    return QStringList{estimate.Articles, estimate.EquipMent, estimate.Payment, estimate.Discount, estimate.Urikake}
        .join(u'\n');
}

QStringList Ledger::write(Connection& connection, const QList<Entry>& entries) {
    clsCsEstimateManager estimates;
    estimates.Prepare(connection);
    const auto write = [&estimates](const Entry& entry, const clsCsEstimate&) {
        const QString discount = entry.Discount.trimmed().isEmpty() ? u"0"_qs : entry.Discount;
        estimates.UpUrikake(entry.EstId, entry.Articles, entry.EquipMent, entry.Payment, discount, entry.Urikake);
    };
    return writeUnchanged(connection, entries,
                          {&clsCsEstimate::EstId, &clsCsEstimate::Articles, &clsCsEstimate::EquipMent,
                           &clsCsEstimate::Payment, &clsCsEstimate::Discount, &clsCsEstimate::Urikake},
                          stateOf, write);
}
