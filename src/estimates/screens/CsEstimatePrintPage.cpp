#include "estimates/screens/CsEstimatePrintPage.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "estimates/EstimateAmounts.h"
#include "price/screens/frmCalcPrice.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"
#include "ui_CsEstimatePrintPage.h"

namespace {

constexpr int printLaw = 6;
constexpr int printPayer = 7;

QList<GridColumn> printColumns() {
    QList<GridColumn> columns{GridColumn::rowNumber()};
    for (const QString& document : {u"見積書"_qs, u"内訳書"_qs, u"明細書"_qs, u"請求書"_qs, u"領収書"_qs})
        columns << GridColumn::of(document, 7, GridColumn::Check).typed();
    for (const QString& title : {u"法別"_qs, u"請求先"_qs}) columns << GridColumn::of(title, 20).grey();
    return columns;
}

QString dayOf(const QString& date) { return formatDate(date, u"yyyy/mm/dd"_qs); }

} // namespace

CsEstimatePrintPage::CsEstimatePrintPage(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::CsEstimatePrintPage>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    ui->flxPrint->setColumns(printColumns());
    ui->flxPrint->setRows(claimRowCount);
    FormPieces::stretchColumn(ui->flxPrint, printPayer);
    FormPieces::fixRowsShown(ui->flxPrint, claimRowCount);
    for (int i = 0; i < claimRowCount; ++i) {
        const auto member = [this, i]<class Control>(const QString& name, Control*& control) {
            control = findChild<Control*>(u"%1_%2"_qs.arg(name).arg(i));
        };
        ClaimFields& row = m_rows[i];
        member(u"lblClaim"_qs, row.claim);
        member(u"numAskPrice"_qs, row.askPrice);
        member(u"cmdCalcPrice"_qs, row.calcPrice);
        member(u"idtAskPrtDate"_qs, row.askPrtDate);
        member(u"cmdMovePrice"_qs, row.movePrice);
        member(u"numPayPrice"_qs, row.payPrice);
        member(u"idtPayDate"_qs, row.payDate);
        member(u"idtPayPrtDate"_qs, row.payPrtDate);
        for (NumberField* amount : {row.askPrice, row.payPrice})
            connect(amount, &NumberField::valueChanged, this, [this] {
                guarded([this] { showSums(); });
                emit changed();
            });
        connect(row.calcPrice, &QPushButton::clicked, this, [this, i] { guarded([this, i] { calcPrice(i); }); });
        connect(row.movePrice, &QPushButton::clicked, this,
                [this, i] { m_rows[i].payPrice->setValue(m_rows[i].askPrice->value()); });
    }
    for (const auto& [button, to] : {std::pair(ui->cmdEtcPrt_0, EstimatePrinting::To::Preview),
                                     std::pair(ui->cmdEtcPrt_1, EstimatePrinting::To::Printer)})
        connect(button, &QPushButton::clicked, this, [this, to = to] { emit printingAsked(to); });
    for (const auto& [button, to] : {std::pair(ui->cmdOpnPrt_0, EstimatePrinting::To::Preview),
                                     std::pair(ui->cmdOpnPrt_1, EstimatePrinting::To::Printer)})
        connect(button, &QPushButton::clicked, this, [this, to = to] { emit opinionAsked(to); });
}

CsEstimatePrintPage::~CsEstimatePrintPage() = default;

void CsEstimatePrintPage::showEstimate(const EstimateDraft& draft) {
    for (int i = 0; i < claimRowCount; ++i) {
        const clsCsEstAsk ask = draft.claims.value(i).ask;
        const ClaimFields& row = m_rows.at(i);
        row.askPrice->setValue(ask.AskPrice);
        row.askPrtDate->setValue(dayOf(ask.AskPrtDate));
        row.payPrice->setValue(ask.PayPrice);
        row.payDate->setValue(dayOf(ask.PayDate));
        row.payPrtDate->setValue(dayOf(ask.PayPrtDate));
        for (int document = Estimate; document <= Receipt; ++document) ui->flxPrint->setChecked(i + 1, document, false);
    }
    ui->idtEstPrtDate->setValue(dayOf(draft.estimate.EstPrtDate));
    ui->idtItmPrtDate->setValue(dayOf(draft.estimate.ItmPrtDate));
    ui->idtDtlPrtDate->setValue(dayOf(draft.estimate.DtlPrtDate));
    showPrinted({});
    showSums();
}

void CsEstimatePrintPage::showPrinted(const QString& words) {
    ui->lblPrinted->setText(words);
    ui->lblPrinted->setVisible(!words.isEmpty());
}

void CsEstimatePrintPage::collect(EstimateDraft& draft) const {
    for (int i = 0; i < qMin<int>(claimRowCount, draft.claims.size()); ++i) {
        const ClaimFields& row = m_rows.at(i);
        clsCsEstAsk& ask = draft.claims[i].ask;
        ask.AskPrice = row.askPrice->value();
        ask.AskPrtDate = row.askPrtDate->value();
        ask.PayPrice = row.payPrice->value();
        ask.PayDate = row.payDate->value();
        ask.PayPrtDate = row.payPrtDate->value();
    }
    draft.estimate.EstPrtDate = ui->idtEstPrtDate->value();
    draft.estimate.ItmPrtDate = ui->idtItmPrtDate->value();
    draft.estimate.DtlPrtDate = ui->idtDtlPrtDate->value();
}

void CsEstimatePrintPage::showClaims(const QList<ClaimRow>& rows) {
    for (int i = 0; i < claimRowCount; ++i) {
        const ClaimRow row = rows.value(i);
        ui->flxPrint->setValue(i + 1, printLaw, row.InsNm);
        ui->flxPrint->setValue(i + 1, printPayer, row.ClaimNm);
        m_rows.at(i).claim->setText(row.InsNm);
    }
}

void CsEstimatePrintPage::showOpinionDates(const QString& casting, const QString& delivery) {
    ui->lblOpnDate1->setText(casting);
    ui->lblOpnDate2->setText(delivery);
}

void CsEstimatePrintPage::showAmounts(const EstimateAmounts& amounts) {
    ui->amounts->showAmounts(amounts);
    m_total = amounts.total;
    showSums();
}

void CsEstimatePrintPage::enter() { ui->flxPrint->setCurrent(1, 1); }

Money CsEstimatePrintPage::sumOf(NumberField* ClaimFields::*amount) const {
    QStringList amounts;
    for (const ClaimFields& row : m_rows) amounts << (row.*amount)->value();
    return sumOfAmounts(amounts);
}

void CsEstimatePrintPage::showSums() {
    const Money total = Money::yen(m_total);
    const Money askSum = sumOf(&ClaimFields::askPrice);
    const Money paySum = sumOf(&ClaimFields::payPrice);
    ui->lblAskPrice->setText(formatThousands(askSum.toYen()));
    ui->lblPayPrice->setText(formatThousands(paySum.toYen()));
    ui->lblAskDiff->setText(formatThousands((total - askSum).toYen()));
    ui->lblPayDiff->setText(formatThousands((total - paySum).toYen()));
}

QList<EstimatePrinting::TickedRow> CsEstimatePrintPage::ticks() const {
    QList<EstimatePrinting::TickedRow> rows(claimRowCount);
    for (int row = 1; row <= claimRowCount; ++row)
        for (int document = Estimate; document <= Receipt; ++document)
            rows[row - 1].ticked[document - Estimate] = ui->flxPrint->isChecked(row, document);
    return rows;
}

QString CsEstimatePrintPage::payPrice(int row) const { return m_rows.at(row).payPrice->value(); }

void CsEstimatePrintPage::setPayPrice(int row, const QString& amount) { m_rows.at(row).payPrice->setValue(amount); }

void CsEstimatePrintPage::goTo(DocumentRequest::Field field, int row) {
    if (field == DocumentRequest::Field::None) return;
    const ClaimFields& fields = m_rows.at(row);
    (field == DocumentRequest::Field::PayPrice ? fields.payPrice : fields.askPrice)->setFocus();
}

bool CsEstimatePrintPage::hasReceivedMark() const { return ui->optRcvMark_0->isChecked(); }

// A percentage of what is not claimed yet.
void CsEstimatePrintPage::calcPrice(int row) {
    const QPoint place = m_rows.at(row).calcPrice->mapToGlobal(QPoint(0, m_rows.at(row).calcPrice->height()));
    openScreen<frmCalcPrice>(
        this,
        [&](frmCalcPrice& screen) {
            screen.AskDiff = ToInt((Money::yen(m_total) - sumOf(&ClaimFields::askPrice)).toYen());
            screen.xpos = place.x();
            screen.ypos = place.y();
        },
        [&](frmCalcPrice& screen) {
            if (screen.Edited) m_rows.at(row).askPrice->setValue(screen.AskPrice);
        });
}
