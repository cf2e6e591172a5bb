#include "estimates/screens/EstimatePrinting.h"

#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "base/clsProfile.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "reports/OpinionDocument.h"
#include "reports/clsReportManager.h"
#include "reports/engine/Report.h"
#include "ui/NormalCursor.h"

#include <memory>
#include <vector>

namespace EstimatePrinting {

namespace {

const QString accidentLaw = u"14"_qs;
const QString contractReceipt = u"repCsEstReceipt"_qs;

// Those of the numbered settings that the office has.
void readValues(ReportPaperSettings& settings, const QList<int>& numbers) {
    for (const int number : numbers)
        if (const QString value = gSysSettingManager.value(number); !value.isEmpty())
            settings.values.insert(number, ToInt(Val(value)));
}

DocumentChoiceSettings readChoiceSettings() {
    DocumentChoiceSettings settings = readDocumentChoiceSettings(clsProfile());
    QList<int> numbers{Setting::AccidentEstimate, Setting::AccidentInvoice};
    for (int kind = 1; kind <= 5; ++kind) numbers << Setting::paperSize(kind);
    readValues(settings, numbers);
    return settings;
}

int copiesOf(DocumentKind kind) {
    const int setting = kind == DocumentKind::Invoice ? Setting::InvoiceCopy : Setting::ReceiptCopy;
    return documentCopies(kind, ToInt(Val(gSysSettingManager.value(setting))));
}

// The papers of one command. All are made before the first one goes out, so that what cannot be printed is told first.
class Papers {
public:
    explicit Papers(const EstimateDraft& draft)
        : m_about(
              (draft.estimate.EstNo + u' ' + JoinWithSpace(draft.customer.CustNm1, draft.customer.CustNm2)).trimmed()) {
    }

    void add(const QString& reportClass, const ReportRecordset& records, int prtType = 0) {
        auto report = std::make_unique<Report>(reportClass);
        report->PrtType(prtType);
        report->About(m_about);
        report->Recordset(records);
        try {
            report->Compose();
        } catch (const ReportValueError& error) {
            const NormalCursor cursor;
            ShowMessage(Message::Warning, u"%1 は印刷しません。\n%2"_qs.arg(report->Title(), error.description()));
            return;
        }
        m_reports.push_back(std::move(report));
    }

    // Gives what went to which printer.
    QString send(To to) {
        SetWaitCursor(false);
        if (to == To::Preview) {
            Report::Show(m_reports);
            return {};
        }
        QStringList printed;
        for (const auto& report : m_reports) {
            report->PrintReport(false);
            printed << told(*report);
            seams().letEventsRun();
        }
        return printed.isEmpty() ? QString() : printed.join(u"、"_qs) + u"を印刷しました。"_qs;
    }

private:
    static QString told(Report& report) {
        const ReportJob& job = report.Job();
        const QString printer = printerOf(job.settings);
        const QString papers = u"%1 %2枚"_qs.arg(report.Title().section(u' ', 0, 0)).arg(job.pages.size());
        return printer.isEmpty() ? papers : u"%1（%2）"_qs.arg(papers, printer);
    }

    const QString m_about;
    std::vector<std::unique_ptr<Report>> m_reports;
};

class Run {
public:
    explicit Run(const Job& job)
        : m_job(job), m_settings(readChoiceSettings()), m_claims(job.draft.claimLines()),
          m_rows(rowsOf(job.draft.composition, job.draft.estimate.EstId)), m_papers(job.draft) {
        m_manager.Prepare(gDbManager.Connection());
        if (job.request.outcome == DocumentRequest::Outcome::WithoutClaim) m_claims = {temporaryClaim()};
    }

    QString all() {
        for (const DocumentKind kind : {DocumentKind::Estimate, DocumentKind::Breakdown, DocumentKind::Detail,
                                        DocumentKind::Invoice, DocumentKind::Receipt})
            documents(kind);
        return m_papers.send(m_job.to);
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
        using Outcome = DocumentChoice::Outcome;
        const DocumentChoice choice =
            chooseDocument(kind, accident, m_settings, m_job.receivedMark, m_job.draft.estimate.EstSum);
        if (choice.outcome == Outcome::SkipAccident) {
            const NormalCursor cursor;
            ShowMessage(Message::Warning, choice.message);
        } else if (choice.outcome == Outcome::AccidentSheets && kind == DocumentKind::Breakdown) {
            addSheets(kind, claims, accidentSheets(m_rows.items.value(0).Item));
        } else {
            for (const QString& name : choice.classes)
                m_papers.add(name, name == contractReceipt ? contractRow(kind, claims) : documentRows(kind, claims),
                             choice.prtType);
        }
    }

    ReportRecordset documentRows(DocumentKind kind, const QList<int>& claims) {
        ReportRecordset records;
        m_manager.GetCsEstimateData(kind, copiesOf(kind), claims, m_job.draft.estimate, m_job.draft.customer,
                                    m_rows.items, m_rows.make, m_rows.parts, m_claims, records, m_job.wholeSum);
        return records;
    }

    ReportRecordset contractRow(DocumentKind kind, const QList<int>& claims) {
        ReportRecordset records;
        m_manager.GetCsEstReceiptData(kind, claims, m_job.draft.estimate, m_job.draft.customer, m_rows.items,
                                      m_rows.make, m_rows.parts, m_claims, records);
        return records;
    }

    void addSheets(DocumentKind kind, const QList<int>& claims, const AccidentSheets& sheets) {
        static const QHash<AccidentSheets::Rows, decltype(&clsReportManager::GetCsEstWorkData)> methods{
            {AccidentSheets::Rows::Ordinary, &clsReportManager::GetCsEstimateWorkOther},
            {AccidentSheets::Rows::Limb, &clsReportManager::GetCsEstWorkData},
            {AccidentSheets::Rows::Equip, &clsReportManager::GetCsEstWorkEquip}};
        ReportRecordset records;
        (m_manager.*methods.value(sheets.rows))(kind, copiesOf(kind), claims, m_job.draft.estimate,
                                                m_job.draft.customer, m_rows.items, m_rows.make, m_rows.parts, m_claims,
                                                records);
        for (const QString& name : sheets.classes) m_papers.add(name, records, sheets.prtType);
    }

    const Job& m_job;
    DocumentChoiceSettings m_settings;
    QList<clsCsEstAsk> m_claims;
    EstimateRows m_rows;
    clsReportManager m_manager;
    Papers m_papers;
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

QString run(const Job& job) {
    SetWaitCursor(true);
    const QString printed = Run(job).all();
    SetWaitCursor(false);
    return printed;
}

void runOpinion(const EstimateDraft& draft, To to) {
    SetWaitCursor(true);
    clsReportManager manager;
    manager.Prepare(gDbManager.Connection());
    ReportRecordset records;
    manager.GetCsEstOpinionData(draft.customer, draft.chart, draft.estimate, records);
    ReportPaperSettings settings{{}, opinionVariants(clsProfile())};
    readValues(settings, {Setting::OpinionPaper, Setting::OpinionType});
    Papers papers(draft);
    papers.add(opinionClass(settings), records);
    papers.send(to);
}

} // namespace EstimatePrinting
