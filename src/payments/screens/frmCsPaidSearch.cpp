#include "payments/screens/frmCsPaidSearch.h"

#include "base/Numbers.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "estimates/EstimateDates.h"
#include "payments/PaidFile.h"
#include "payments/screens/PaymentConditions.h"
#include "ui/TextField.h"
#include "ui_PaymentConditions.h"
#include "ui_frmCsPaidSearch.h"

frmCsPaidSearch::frmCsPaidSearch(QWidget* parent) : ListScreen(parent), ui(std::make_unique<Ui::frmCsPaidSearch>()) {
    ui->setupUi(this);
    ui->pagConditions->setPeriodWord(u"入金日："_qs);
    onReturn(ui->pagConditions->ui->txtOrderCd, [this] { ui->pagConditions->completeOrder(); });
    onClick(ui->cmdSearch, [this] { search(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsPaidSearch::~frmCsPaidSearch() = default;

void frmCsPaidSearch::load() {
    QList<clsProcKbn> statuses;
    gProcKbnManager.GetList(statuses, gProcKbnManager.keyed({WorkStatus::Payment}));
    ui->pagConditions->fillStatuses(statuses);
    ui->pagConditions->restoreExclusions();
    ui->pagConditions->ui->txtOrderCd->setFocus();
}

void frmCsPaidSearch::search() {
    PaymentRows rows(gDbManager.Connection());
    ui->pagConditions->keepExclusions();
    const QStringList ids = rows.ids(paidCondition(ui->pagConditions->search()), paymentOrder());
    if (ids.isEmpty()) {
        ShowMessage(Message::Warning, u"対象データがありません。"_qs);
        return;
    }
    const auto written = writeListFile(PaidFile::form(), [&](const std::function<void(const CsvRow&)>& take) {
        return whileBusy(u"ファイル出力中"_qs, [&](const Pause& pause) {
            rows.forEach(
                ids, [&take](const PaymentRow& row) { take(PaidFile::line(row)); }, pause);
        });
    });
    if (!written) return;
    const QString question =
        formatThousands(written->rows) + u"件データを出力しました。出力したファイルを開きますか？"_qs;
    if (ShowMessage(Message::Question, question) == AnswerYes) OpenWithShell(written->path);
}
