#include "estimates/screens/EstimatePrinting.h"

#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "reports/clsReportManager.h"
#include "reports/engine/Report.h"

namespace EstimatePrinting {

namespace {

const QString accidentLaw = u"14"_qs;

DocumentChoiceSettings readChoiceSettings() {
    DocumentChoiceSettings settings = readDocumentChoiceSettings(clsProfile());
    QList<int> numbers{Setting::AccidentEstimate, Setting::AccidentInvoice};
    for (int kind = 1; kind <= 5; ++kind) numbers << Setting::paperSize(kind);
    for (const int number : numbers)
        if (const QString value = gSysSettingManager.value(number); !value.isEmpty())
            settings.values.insert(number, ToInt(Val(value)));
    return settings;
}

int copiesOf(DocumentKind kind) {
    const int setting = kind == DocumentKind::Invoice ? Setting::InvoiceCopy : Setting::ReceiptCopy;
    return documentCopies(kind, ToInt(Val(gSysSettingManager.value(setting))));
}

class Run {
public:
    explicit Run(const Job& job)
        : m_job(job), m_settings(readChoiceSettings()), m_claims(job.draft.claimLines()),
          m_rows(rowsOf(job.draft.composition, job.draft.estimate.EstId)) {
        m_manager.Prepare(gDbManager.Connection());
        if (job.request.outcome == DocumentRequest::Outcome::WithoutClaim) m_claims = {temporaryClaim()};
    }

    void all() {
        for (const DocumentKind kind : {DocumentKind::Estimate, DocumentKind::Breakdown, DocumentKind::Detail,
                                        DocumentKind::Invoice, DocumentKind::Receipt})
            documents(kind);
    }

private:
    // Without a claim the papers are made out to the person over the whole estimate, or what was typed for them.
    clsCsEstAsk temporaryClaim() const {
        clsCsEstAsk claim;
        claim.EstId = m_job.draft.estimate.EstId;
        claim.AskNo = u"1"_qs;
        claim.ClaimNm = JoinWithSpace(m_job.draft.customer.CustNm1, m_job.draft.customer.CustNm2);
        const auto amount = [&](Money typed) {
            return typed == Money() ? m_job.draft.estimate.EstSum : typed.toText();
        };
        claim.AskPrice = amount(m_job.request.askPrice);
        claim.PayPrice = amount(m_job.request.payPrice);
        return claim;
    }

    bool isAccident(int askNo) const {
        return std::any_of(m_claims.begin(), m_claims.end(), [&](const clsCsEstAsk& claim) {
            return claim.AskNo.toInt() == askNo && claim.InsNo == accidentLaw;
        });
    }

    void documents(DocumentKind kind) {
        QList<int> accident, ordinary;
        for (const int askNo : m_job.request.claimsOf(kind)) (isAccident(askNo) ? accident : ordinary) << askNo;
        if (!accident.isEmpty()) documents(kind, accident, true);
        if (!ordinary.isEmpty()) documents(kind, ordinary, false);
    }

    void documents(DocumentKind kind, const QList<int>& claims, bool accident) {
        const DocumentChoice choice =
            chooseDocument(kind, accident, m_settings, m_job.receivedMark, m_job.draft.estimate.EstSum);
        if (choice.outcome != DocumentChoice::Outcome::Print) {
            const bool skipped = choice.outcome == DocumentChoice::Outcome::SkipAccident;
            ShowMessage(Message::Warning, skipped ? choice.message : u"労災の専用用紙はこの版では印刷できません。"_qs);
            return;
        }
        ReportRecordset records;
        m_manager.GetCsEstimateData(kind, copiesOf(kind), claims, m_job.draft.estimate, m_job.draft.customer,
                                    m_rows.items, m_rows.make, m_rows.parts, m_claims, records, m_job.wholeSum);
        for (const QString& name : choice.classes) send(name, records, choice.prtType);
    }

    void send(const QString& reportClass, const ReportRecordset& records, int prtType) {
        Report report(reportClass);
        report.PrtType(prtType);
        report.Recordset(records);
        SetWaitCursor(false);
        if (m_job.to == To::Preview)
            report.Show(1);
        else
            report.PrintReport(false);
        seams().letEventsRun();
    }

    const Job& m_job;
    DocumentChoiceSettings m_settings;
    QList<clsCsEstAsk> m_claims;
    EstimateRows m_rows;
    clsReportManager m_manager;
};

} // namespace

QList<PrintGridRow> gridRows(const EstimateDraft& draft, const QList<TickedRow>& ticks) {
    QList<PrintGridRow> rows;
    int askNo = 0;
    for (int i = 0; i < qMin(draft.claims.size(), ticks.size()); ++i) {
        const ClaimRow& claim = draft.claims.at(i);
        PrintGridRow row;
        row.isClaim = claim.isUsed();
        if (row.isClaim) row.askNo = ++askNo;
        row.ticked = ticks.at(i).ticked;
        row.askPrice = Money::leadingNumber(claim.ask.AskPrice);
        row.payPrice = Money::leadingNumber(claim.ask.PayPrice);
        rows << row;
    }
    return rows;
}

bool refusesEmpty(const EstimateDraft& draft) {
    const EstimateRows rows = rowsOf(draft.composition, draft.estimate.EstId);
    const bool empty = rows.make.isEmpty() && rows.parts.isEmpty();
    if (empty)
        ShowMessage(Message::Warning, u"印刷する明細がありません。基本・製作要素か完成要素を入力して下さい。"_qs);
    return empty;
}

void run(const Job& job) {
    SetWaitCursor(true);
    Run(job).all();
    SetWaitCursor(false);
}

} // namespace EstimatePrinting
