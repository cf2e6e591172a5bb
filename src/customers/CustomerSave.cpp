#include "customers/CustomerSave.h"

#include "base/Application.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "customers/ChartParties.h"
#include "reference/ReferenceManagers.h"

#include <algorithm>

namespace {

void logDone(const QString& what, const clsCustomer& customer) {
    writeLog(what + u" 顧客ID－枝番："_qs + customer.CustId + u" - "_qs + customer.CustSubId);
}

void savePlace(const clsCustomer& customer) {
    clsPrefecture pair;
    pair.Pref = customer.Pref;
    pair.City = customer.City;
    if (!pair.Pref.isEmpty() || !pair.City.isEmpty()) gPrefectureManager.SaveData(pair);
}

bool isNamedAsItsMaster(const CustomerChart& row) {
    clsOrder order;
    return !row.orderCd.isEmpty() && gOrderManager.GetDataCd(row.orderCd, order) &&
           Text::rightTrimmed(order.OrderNm) == Text::rightTrimmed(row.chart.OrderNm);
}

// A party that was renamed in one chart is asked about once: the charts that nobody touched follow the answer.
bool settleCharts(QList<CustomerChart>& charts) {
    QList<CustomerChart*> untouched;
    for (CustomerChart& row : charts)
        if (isNamedAsItsMaster(row)) untouched << &row;
    for (CustomerChart& row : charts)
        if (!untouched.contains(&row) && !settleParties(row.chart, row.orderCd)) return false;
    for (CustomerChart* row : untouched) {
        clsOrder order;
        if (gOrderManager.GetDataCd(row->orderCd, order)) row->chart.OrderNm = order.OrderNm;
        settleParties(row->chart, row->orderCd);
    }
    return true;
}

// Estimates find a chart by its number: known charts keep theirs, and a new one is never given that of a chart that
// goes with this save.
bool saveCharts(const clsCustomer& customer, QList<CustomerChart>& charts) {
    if (!settleCharts(charts)) return false;
    for (CustomerChart& row : charts) {
        row.chart.CustId = customer.CustId;
        row.chart.CustSubId = customer.CustSubId;
        row.chart.UpdUserNo = customer.UpdUserNo;
        gChartManager.SaveData(row.chart);
    }
    return true;
}

// The charts that the operator took off. Those of other machines, which the draft never held, stay.
void removeCharts(const QList<clsChart>& loaded, const QList<CustomerChart>& kept) {
    QStringList used;
    for (const clsChart& chart : loaded) {
        const bool stays = std::any_of(kept.begin(), kept.end(), [&chart](const CustomerChart& row) {
            return row.chart.ChartNo == chart.ChartNo;
        });
        if (stays) continue;
        if (gChartManager.IsUsed(chart))
            used << chart.ChartNo;
        else
            gChartManager.DeleteData(chart.CustId, chart.CustSubId, chart.ChartNo);
    }
    if (!used.isEmpty())
        ShowMessage(Message::Information,
                    u"カルテNo %1 は見積で使われているため、削除せずに残します。"_qs.arg(used.join(u"、"_qs)));
}

bool isStored(const clsCustomer& customer) {
    clsCustomer stored;
    return !customer.CustId.isEmpty() && !customer.CustSubId.isEmpty() &&
           gCustomerManager.GetData(customer.CustId, customer.CustSubId, stored);
}

// --- what another machine did meanwhile ---

bool readRows(const CustomerKey& branch, CustomerRows& rows) {
    if (!gCustomerManager.GetData(branch.CustId, branch.CustSubId, rows.customer)) return false;
    for (const clsCsIns& law : gCsInsManager.rowsOf(branch)) rows.laws << law.InsNo;
    rows.charts = gChartManager.rowsOf(branch);
    return true;
}

QString shortened(QString value) {
    constexpr int longest = 40;
    value.replace(u'\n', u' ');
    return value.size() > longest ? value.left(longest) + u'…' : value;
}

QStringList changesOf(const clsCustomer& now, const clsCustomer& loaded) {
    static const QStringList stamps{u"登録日"_qs, u"更新日"_qs, u"編集者No"_qs};
    QStringList changes;
    for (const auto& [member, column] : gCustomerManager.fields())
        if (now.*member != loaded.*member && !stamps.contains(column))
            changes << u"%1：%2"_qs.arg(column, shortened(now.*member));
    return changes;
}

QStringList changesOf(const QList<clsChart>& now, const QList<clsChart>& loaded) {
    QStringList changes;
    for (const clsChart& chart : loaded) {
        const auto same =
            std::find_if(now.begin(), now.end(), [&](const clsChart& other) { return other.ChartNo == chart.ChartNo; });
        if (same == now.end())
            changes << u"カルテNo %1：削除"_qs.arg(chart.ChartNo);
        else if (gChartManager.rowText(*same) != gChartManager.rowText(chart))
            changes << u"カルテNo %1：%2"_qs.arg(chart.ChartNo, clsChartManager::GetDiffText(chart, *same));
    }
    return changes;
}

// What others add to a list that the operator left alone is nobody's loss.
bool isOnlyAdded(const QStringList& now, const QStringList& loaded, const QStringList& typed) {
    return typed == loaded && now.mid(0, loaded.size()) == loaded;
}

bool askAgain(const QString& rows, const QString& question) {
    return AskingOutside::ask(rows + question, [question] { return ShowMessage(Message::QuestionNo, question); }) ==
           AnswerYes;
}

// The save writes over what stands there now. Whoever changed that since it was loaded is not undone unseen.
bool mayOverwrite(CustomerDraft& draft) {
    const CustomerRows& loaded = draft.stored;
    if (loaded.customer.CustId.isEmpty()) return true; // a new one
    CustomerRows now;
    if (!readRows(loaded.customer.key(), now))
        return askAgain({}, u"この顧客は他の端末で削除されています。もう一度登録しますか？"_qs);
    QStringList changes = changesOf(now.customer, loaded.customer);
    if (isOnlyAdded(now.laws, loaded.laws, draft.laws))
        draft.laws = now.laws;
    else if (now.laws != loaded.laws && now.laws != draft.laws)
        changes << u"保険（法別）"_qs;
    changes << changesOf(now.charts, loaded.charts);
    const QString row = gCustomerManager.rowText(now.customer);
    if (changes.isEmpty() && row == gCustomerManager.rowText(loaded.customer)) return true;
    QString question = u"他の端末で更新されています。上書きしますか？"_qs;
    if (!changes.isEmpty()) question += u"\n\n他の端末の内容\n"_qs + changes.join(u'\n');
    return askAgain(row + gChartManager.rowTexts(now.charts), question);
}

} // namespace

bool loadCustomer(const QString& CustId, const QString& CustSubId, CustomerDraft& draft) {
    CustomerDraft read;
    if (!readRows({CustId, CustSubId}, read.stored)) return false;
    read.customer = read.stored.customer;
    read.laws = read.stored.laws;
    for (clsChart chart : read.stored.charts) {
        const QString orderCd = renewParties(chart);
        read.charts << CustomerChart{chart, orderCd};
    }
    draft = read;
    return true;
}

void CustomerDraft::takeIdentity(const CustomerDraft&, const CustomerDraft& after) {
    customer.CustId = after.customer.CustId;
    customer.CustSubId = after.customer.CustSubId;
    if (customer.CustNo.isEmpty() || customer.CustNo == automaticNumber) customer.CustNo = after.customer.CustNo;
    stored = after.stored;
}

CustomerSaveResult saveCustomer(Connection& connection, CustomerDraft& draft, CustomerSaveAs as) {
    const QString branch = draft.customer.CustSubId;
    // A branch that the try before has made is there; it is not made again.
    if (DraftSave::settle(connection, draft) && draft.customer.CustSubId != branch) as = CustomerSaveAs::Itself;
    bool isKnown = false;
    const bool isStoredNow = DraftSave::run<CustomerDraft>(connection, draft, [&](CustomerDraft& saved) {
        connection.lockForWriting(u"顧客見積情報"_qs); // all who write customers take this lock first
        clsCustomer& customer = saved.customer;
        const bool overwrites = as == CustomerSaveAs::Itself;
        if (overwrites && !mayOverwrite(saved)) return false;
        if (!overwrites) customer.CustSubId.clear();
        customer.UpdUserNo = QString::number(gUserNo);
        isKnown = isStored(customer);
        if (!gCustomerManager.SaveData(customer)) return false;
        savePlace(customer);
        gCsInsManager.SaveAll(customer.key(), saved.laws);
        if (!saveCharts(customer, saved.charts)) return false;
        if (overwrites) removeCharts(saved.stored.charts, saved.charts);
        return loadCustomer(customer.CustId, customer.CustSubId, saved);
    });
    if (!isStoredNow) return CustomerSaveResult::Refused;
    logDone(isKnown ? u"顧客更新"_qs : u"顧客登録"_qs, draft.customer);
    return isKnown ? CustomerSaveResult::Updated : CustomerSaveResult::Added;
}

void deleteCustomer(Connection& connection, const clsCustomer& customer) {
    Transaction transaction(connection);
    gCustomerManager.DeleteData(customer.CustId, customer.CustSubId);
    transaction.commit();
    logDone(u"顧客削除"_qs, customer);
}
