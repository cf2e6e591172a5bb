#include "estimates/screens/CsEstimatePrintPage.h"

#include "base/basCommon.h"
#include "base/basMessage.h"
#include "estimates/EstimateAmounts.h"
#include "price/screens/frmCalcPrice.h"
#include "ui/FormPieces.h"
#include "ui/Grid.h"
#include "ui_CsEstimatePrintPage.h"

namespace {

constexpr int printInsurance = 6;
constexpr int printClaimName = 7;

QList<GridColumn> printColumns() {
    QList<GridColumn> columns(1);
    columns[0].kind = GridColumn::RowNumber;
    columns[0].width = 2;
    for (const QString& document : {u"見積書"_qs, u"内訳書"_qs, u"明細書"_qs, u"請求書"_qs, u"領収書"_qs}) {
        GridColumn tick;
        tick.title = document;
        tick.kind = GridColumn::Check;
        tick.width = 7;
        tick.editable = true;
        columns << tick;
    }
    for (const QString& title : {u"法別"_qs, u"請求先"_qs}) {
        GridColumn grey;
        grey.title = title;
        grey.width = 20;
        grey.background = Style::computed;
        columns << grey;
    }
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
    FormPieces::stretchColumn(ui->flxPrint, printClaimName);
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
}

CsEstimatePrintPage::~CsEstimatePrintPage() = default;

void CsEstimatePrintPage::showOrder(const EstimateDraft& draft) {
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
    showSums();
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

void CsEstimatePrintPage::showInsurances(const QList<ClaimRow>& rows) {
    for (int i = 0; i < claimRowCount; ++i) {
        const ClaimRow row = rows.value(i);
        ui->flxPrint->setValue(i + 1, printInsurance, row.InsNm);
        ui->flxPrint->setValue(i + 1, printClaimName, row.ClaimNm);
        m_rows.at(i).claim->setText(row.InsNm);
    }
}

void CsEstimatePrintPage::showTotal(qint32 total) {
    m_total = total;
    showSums();
}

void CsEstimatePrintPage::showSums() {
    QStringList asked, paid;
    for (const ClaimFields& row : m_rows) {
        asked << row.askPrice->value();
        paid << row.payPrice->value();
    }
    const Money total = Money::yen(m_total);
    const Money askSum = sumOfAmounts(asked);
    const Money paySum = sumOfAmounts(paid);
    ui->lblAskPrice->setText(formatThousands(askSum.toYen()));
    ui->lblPayPrice->setText(formatThousands(paySum.toYen()));
    ui->lblAskDiff->setText(formatThousands((total - askSum).toYen()));
    ui->lblPayDiff->setText(formatThousands((total - paySum).toYen()));
}

QList<int> CsEstimatePrintPage::ticked(Document document) const {
    QList<int> rows;
    for (int row = 1; row <= claimRowCount; ++row)
        if (ui->flxPrint->isChecked(row, document)) rows << row;
    return rows;
}

bool CsEstimatePrintPage::hasClaims() const { return !ui->flxPrint->value(1, printInsurance).isEmpty(); }

qint32 CsEstimatePrintPage::askDifference() const { return ToInt(Val(ui->lblAskDiff->text())); }

bool CsEstimatePrintPage::hasReceivedMark() const { return ui->optRcvMark_0->isChecked(); }

// A percentage of what is not claimed yet.
void CsEstimatePrintPage::calcPrice(int row) {
    const QPoint place = m_rows.at(row).calcPrice->mapToGlobal(QPoint(0, m_rows.at(row).calcPrice->height()));
    openScreen<frmCalcPrice>(
        this,
        [&](frmCalcPrice& screen) {
            screen.AskDiff = askDifference();
            screen.xpos = place.x();
            screen.ypos = place.y();
        },
        [&](frmCalcPrice& screen) {
            if (screen.Edited) m_rows.at(row).askPrice->setValue(screen.AskPrice);
        });
}
