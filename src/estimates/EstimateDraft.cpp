#include "estimates/EstimateDraft.h"

#include "base/AppError.h"
#include "base/Application.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/basMessage.h"
#include "composition/LineRules.h"
#include "customers/ChartParties.h"
#include "customers/clsCsInsManager.h"
#include "db/AskingOutside.h"
#include "db/clsSysSettingManager.h"
#include "estimates/EstimateDates.h"
#include "estimates/EstimateManagers.h"
#include "reference/ReferenceManagers.h"

namespace {

const QString wholePrice = u"100"_qs;

// The rows of an estimate.
struct StoredEstimate {
    clsCsEstimate header;
    EstimateRows rows;
    QList<clsCsEstAsk> asks;

    bool read(const QString& EstId) {
        if (!gCsEstimateManager.GetData(EstId, header)) return false;
        rows = {gCsItemManager.rowsOf({EstId}), gCsMakeElmtManager.rowsOf({EstId}),
                gCsCmpltElmtManager.rowsOf({EstId})};
        asks = gCsEstAskManager.rowsOf({EstId});
        return true;
    }

    QString text() const {
        return QStringList{gCsEstimateManager.rowText(header), gCsItemManager.rowTexts(rows.items),
                           gCsMakeElmtManager.rowTexts(rows.make), gCsCmpltElmtManager.rowTexts(rows.parts),
                           gCsEstAskManager.rowTexts(asks)}
            .join(u'\x1D');
    }
};

// The save of one draft, step by step. A step that the operator refuses answers false.
class Saver {
public:
    Saver(Connection& connection, EstimateDraft draft, const ConfirmUpdate& confirm)
        : m_connection(connection), m_draft(std::move(draft)), m_confirm(confirm) {}

    bool run() {
        const QString shownId = m_draft.customer.CustId;
        const QString shownBranch = m_draft.customer.CustSubId;
        if (!mayOverwrite() || !saveCustomer() || !savePrefecture() || !saveClaims() ||
            !saveChart(shownId, shownBranch) || !confirmTax())
            return false;
        saveProducers();
        saveHeader();
        saveRows();
        return true;
    }

    const EstimateDraft& draft() const { return m_draft; }

private:
    clsCsEstimate& estimate() { return m_draft.estimate; }

    // Another machine may have stored the estimate since it was loaded. The time of its save alone would not tell two
    // saves of one second apart. A yes holds for the rows that it was given for.
    bool mayOverwrite() {
        m_connection.lockForWriting(gCsEstimateManager.table()); // so that nobody stores it between look and write
        if (estimate().EstId.isEmpty()) return true;
        StoredEstimate stored;
        if (!stored.read(estimate().EstId))
            throw AppError(
                u"この見積は他の端末で削除されています。\n「再来受付」で新しい見積にすると登録できます。"_qs);
        const QString rows = stored.text();
        if (rows == m_draft.storedRows) return true;
        return AskingOutside::ask(u"overwrite "_qs + rows, [] {
                   return ShowMessage(Message::QuestionNo, u"他の端末で更新されています。上書きしますか？"_qs);
               }) == AnswerYes;
    }

    bool saveCustomer() {
        clsCustomer& customer = m_draft.customer;
        if (customer.CustNo == automaticNumber) customer.CustNo.clear();
        customer.UpdUserNo = QString::number(gUserNo);
        if (!gCustomerManager.SaveDataFromEstimate(customer, m_confirm)) return false;
        estimate().CustId = customer.CustId;
        estimate().CustSubId = customer.CustSubId;
        return true;
    }

    bool savePrefecture() {
        clsPrefecture pair;
        pair.Pref = m_draft.customer.Pref;
        pair.City = m_draft.customer.City;
        if (!pair.Pref.isEmpty() || !pair.City.isEmpty()) gPrefectureManager.SaveData(pair);
        return true;
    }

    bool saveClaims() {
        for (ClaimRow& row : m_draft.claims) {
            if (!row.isUsed()) continue;
            clsClaim claim;
            claim.ClaimNo = row.ClaimNo;
            claim.ClaimCd = row.ClaimCd;
            claim.ClaimNm = row.ClaimNm;
            if (gClaimManager.ReconcileData(claim) == Reconciled::Cancelled) return false;
            row.ClaimNo = claim.ClaimNo;
            row.ClaimNm = claim.ClaimNm;
            gInsClaimManager.ReconcileData(row.InsNo, row.ClaimNo);
            clsCsIns ins{m_draft.customer.CustId, m_draft.customer.CustSubId, {}, row.InsNo};
            gCsInsManager.AddIfMissing(ins);
        }
        return true;
    }

    bool saveChart(const QString& shownId, const QString& shownBranch) {
        clsChart& chart = m_draft.chart;
        if (!settleParties(chart, m_draft.orderCd)) return false;
        chart.CustId = m_draft.customer.CustId;
        chart.CustSubId = m_draft.customer.CustSubId;
        chart.UpdUserNo = QString::number(gUserNo);
        const bool moved = shownId != chart.CustId || shownBranch != chart.CustSubId;
        if (!chart.ChartNo.isEmpty() && !shownId.isEmpty() && moved)
            gChartManager.CopyData(shownId, shownBranch, chart.CustId, chart.CustSubId, gUserNo);
        gChartManager.SaveFromEstimate(chart, estimate().EstId.isEmpty() ? clsChartManager::Mode::NewEstimate
                                                                         : clsChartManager::Mode::StoredEstimate);
        estimate().ChartNo = chart.ChartNo;
        return true;
    }

    // A new estimate with another tax than the setting is more often a slip than a wish.
    bool confirmTax() {
        if (!estimate().EstNo.isEmpty()) return true;
        const QString setting = gSysSettingManager.value(Setting::Tax).trimmed();
        const QString tax = estimate().Tax.trimmed();
        if (tax == setting) return true;
        return ShowMessage(Message::QuestionNo,
                           u"消費税相当額がシステム設定の値と異なります。\nこのまま登録しますか？\n\n"
                           u"消費税相当額：%1\nシステム設定：%2"_qs.arg(tax, setting)) == AnswerYes;
    }

    static void saveProducer(QString& number, const QString& name) {
        number.clear();
        if (name.trimmed().isEmpty()) return; // also of wide blanks
        clsProducer producer;
        producer.ProducerNm = name;
        gProducerManager.AddByName(producer);
        number = producer.ProducerNo;
    }

    void saveProducers() {
        saveProducer(estimate().Charge1No, estimate().Charge1Nm);
        saveProducer(estimate().ProducerNo, estimate().ProducerNm);
    }

    void saveHeader() {
        const QList<clsCsEstAsk> claims = m_draft.claimLines();
        completeFromClaims(estimate(), claims);
        estimate().ProcKbnNo = m_draft.uncollected ? WorkStatus::Uncollected : statusOf(estimate(), claims);
        estimate().UpdUserNo = QString::number(gUserNo);
        gCsEstimateManager.SaveData(estimate());
    }

    void saveRows() {
        const QString EstId = estimate().EstId;
        const EstimateRows rows = rowsOf(m_draft.composition, EstId);
        gCsItemManager.SaveData(rows.items);
        gCsMakeElmtManager.SaveData(EstId, rows.make);
        gCsCmpltElmtManager.SaveData(EstId, rows.parts);
        // Without a claim row the old claim rows stay.
        gCsEstAskManager.SaveData(m_draft.claimLines());
    }

    Connection& m_connection;
    EstimateDraft m_draft;
    const ConfirmUpdate& m_confirm;
};

ClaimRow rowOf(const clsCsEstAsk& ask) {
    ClaimRow row;
    row.InsNo = ask.InsNo;
    row.ClaimNo = ask.ClaimNo;
    row.ClaimNm = ask.ClaimNm;
    row.ask = ask;
    clsIns ins;
    if (Val(ask.InsNo) != 0 && gInsManager.GetData(ask.InsNo, ins)) row.InsNm = ins.InsNm;
    clsClaim claim;
    if (Val(ask.ClaimNo) != 0 && gClaimManager.GetData(ask.ClaimNo, claim)) row.ClaimCd = claim.ClaimCd;
    return row;
}

} // namespace

QList<ClaimRow> EstimateDraft::usedClaims() const {
    QList<ClaimRow> used;
    for (const ClaimRow& row : claims)
        if (row.isUsed()) used << row;
    return used;
}

QList<clsCsEstAsk> EstimateDraft::claimLines() const {
    QList<clsCsEstAsk> asks;
    for (const ClaimRow& row : usedClaims()) {
        clsCsEstAsk line = row.ask;
        line.EstId = estimate.EstId;
        line.AskNo = QString::number(asks.size() + 1);
        line.InsNo = row.InsNo;
        line.ClaimNo = row.ClaimNo;
        line.ClaimNm = row.ClaimNm;
        asks << line;
    }
    if (!asks.isEmpty() && !partialPayment.isEmpty()) asks.first().PayPrice = formatWhole(partialPayment);
    return asks;
}

EstimateAmounts EstimateDraft::amounts() const {
    return recalcAmounts({estimate.Discount1, estimate.Discount2, estimate.Discount3, estimate.Tax},
                         composition.column(&ComposedItem::make, MakeLine::Price),
                         composition.column(&ComposedItem::parts, PartsLine::Price));
}

void EstimateDraft::takeAmounts() {
    const EstimateAmounts now = amounts();
    estimate.Total = QString::number(now.beforeTax());
    estimate.EstSum = QString::number(now.total);
}

// --- the commands ---

void EstimateDraft::becomeNew() {
    estimate.EstId.clear();
    estimate.EstNo.clear();
    estimate.UpdDate.clear();
    estimate.OpnPrtDate.clear();
    storedRows.clear();
    doubt = {};
    estimate.PriceSedYear = gPriceYear;
    for (ClaimRow& claim : claims) claim.ask.AskDate.clear();
}

void EstimateDraft::clearPerson() {
    customer = {};
    chart = {};
    orderCd.clear();
    estimate.GrantNo.clear();
    for (ClaimRow& claim : claims) claim = {{}, {}, {}, {}, {}, claim.ask};
}

void EstimateDraft::clearEstimate(Clearing level) {
    uncollected = false;
    estimate.ProcKbnNo = WorkStatus::Nothing;
    for (const auto date : workDates()) (estimate.*date).clear();
    for (const auto date : {&clsCsEstimate::EstPrtDate, &clsCsEstimate::ItmPrtDate, &clsCsEstimate::DtlPrtDate})
        (estimate.*date).clear();
    for (ClaimRow& claim : claims) claim.ask = {};
    if (level == Clearing::Dates) return;
    estimate.EstNm.clear();
    estimate.ProductCd.clear();
    partialPayment.clear();
    composition.clear();
    if (level == Clearing::ContentsAndDates) return;
    for (const auto text :
         {&clsCsEstimate::ProducerNm, &clsCsEstimate::LifeYear, &clsCsEstimate::LifeEnd, &clsCsEstimate::Category,
          &clsCsEstimate::Frame, &clsCsEstimate::Charge1Nm, &clsCsEstimate::Memo})
        (estimate.*text).clear();
    estimate.Discount1 = estimate.Discount2 = estimate.Discount3 = wholePrice;
}

void EstimateDraft::takeIdentity(const EstimateDraft& before, const EstimateDraft& after) {
    for (const auto member :
         {&clsCsEstimate::EstId, &clsCsEstimate::EstNo, &clsCsEstimate::AddDate, &clsCsEstimate::UpdDate})
        estimate.*member = after.estimate.*member;
    storedRows = after.storedRows;
    if (customer.CustId != before.customer.CustId || customer.CustSubId != before.customer.CustSubId) return;
    for (const auto member : {&clsCustomer::CustId, &clsCustomer::CustSubId, &clsCustomer::CustNo})
        customer.*member = after.customer.*member;
    if (chart.ChartNo == before.chart.ChartNo) chart.ChartNo = after.chart.ChartNo;
}

void EstimateDraft::takeCurrentTax() { estimate.Tax = gSysSettingManager.value(Setting::Tax); }

EstimateDraft newEstimate() {
    EstimateDraft draft;
    draft.estimate.ProcKbnNo = WorkStatus::Nothing;
    draft.estimate.PriceSedYear = gPriceYear;
    draft.estimate.Discount1 = draft.estimate.Discount2 = draft.estimate.Discount3 = wholePrice;
    draft.takeCurrentTax();
    return draft;
}

// --- between screen and tables ---

SaveResult saveEstimate(Connection& connection, EstimateDraft& draft, const ConfirmUpdate& confirm) {
    if (!draft.composition.hasLines()) {
        ShowMessage(Message::NotSet, u"見積明細(基本・製作要素／完成要素)"_qs);
        return SaveResult::Refused;
    }
    DraftSave::settle(connection, draft);
    const bool stored = DraftSave::run<EstimateDraft>(connection, draft, [&](EstimateDraft& saved) {
        Saver saver(connection, saved, confirm);
        return saver.run() && loadEstimate(saver.draft().estimate.EstId, saved);
    });
    return stored ? SaveResult::Saved : SaveResult::Refused;
}

bool loadEstimate(const QString& EstId, EstimateDraft& draft) {
    draft = {};
    StoredEstimate stored;
    if (!stored.read(EstId)) return false;
    draft.storedRows = stored.text();
    clsCsEstimate& estimate = draft.estimate = stored.header;
    if (!estimate.CustId.isEmpty()) {
        gCustomerManager.GetData(estimate.CustId, estimate.CustSubId, draft.customer);
        gChartManager.GetData(estimate.CustId, estimate.CustSubId, estimate.ChartNo, draft.chart);
    }
    draft.orderCd = orderCodeOf(draft.chart);
    draft.composition = composed(stored.rows);
    for (const clsCsEstAsk& ask : stored.asks) draft.claims << rowOf(ask);
    if (!stored.asks.isEmpty()) draft.partialPayment = stored.asks.first().PayPrice;
    draft.uncollected = estimate.ProcKbnNo == WorkStatus::Uncollected;
    return true;
}

void deleteEstimate(Connection& connection, const QString& EstId, const std::optional<QString>& UpdDate) {
    Transaction transaction(connection);
    connection.lockForWriting(gCsEstimateManager.table()); // a save under way ends first, with all its rows
    clsCsEstimate stored;
    if (UpdDate && gCsEstimateManager.GetData(EstId, stored) && stored.UpdDate != *UpdDate)
        throw AppError(u"この見積は他の端末で更新されています。\n開き直して内容を確かめてから削除してください。"_qs);
    gCsEstAskManager.DeleteData(EstId);
    gCsMakeElmtManager.DeleteData(EstId);
    gCsCmpltElmtManager.DeleteData(EstId);
    gCsItemManager.DeleteData(EstId);
    gCsEstimateManager.DeleteData(EstId);
    transaction.commit();
}

QList<ClaimRow> claimRowsOf(const QString& CustId, const QString& CustSubId) {
    QList<ClaimRow> rows;
    for (const clsCsIns& law : gCsInsManager.rowsOf({CustId, CustSubId}).mid(0, claimRowCount)) {
        clsCsEstAsk ask;
        ask.InsNo = law.InsNo;
        rows << rowOf(ask);
    }
    return rows;
}
