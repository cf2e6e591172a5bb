#include "payments/screens/frmCsUrikakeSystem.h"

#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "payments/screens/frmCsUrikakeList.h"
#include "ui/FormPieces.h"
#include "ui_frmCsUrikakeSystem.h"

namespace {

int chosenOf(const QList<QRadioButton*>& options) {
    for (int i = 0; i < options.size(); ++i)
        if (options.at(i)->isChecked()) return i;
    return 0;
}

} // namespace

frmCsUrikakeSystem::frmCsUrikakeSystem(QWidget* parent)
    : Screen(parent), ui(std::make_unique<Ui::frmCsUrikakeSystem>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    // Who enters a day means its kind.
    for (const DayRow& row : dayRows())
        for (DateField* field : {row.from, row.to})
            connect(field, &DateField::valueSettled, this, [field, option = row.option] {
                if (!field->value().isEmpty()) option->setChecked(true);
            });
    onClick(ui->cmdSearch, [this] { search(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsUrikakeSystem::~frmCsUrikakeSystem() = default;

void frmCsUrikakeSystem::load() { ui->idtDateFrom1->setFocus(); }

QList<frmCsUrikakeSystem::DayRow> frmCsUrikakeSystem::dayRows() const {
    return {{ui->optSearchDay_0, ui->idtDateFrom1, ui->idtDateTo1},
            {ui->optSearchDay_1, ui->idtDateFrom2, ui->idtDateTo2},
            {ui->optSearchDay_2, ui->idtDateFrom3, ui->idtDateTo3},
            {ui->optSearchDay_3, ui->idtDateFrom4, ui->idtDateTo4}};
}

LedgerSearch frmCsUrikakeSystem::asked() const {
    LedgerSearch asked;
    const QList<DayRow> rows = dayRows();
    for (int i = 0; i < rows.size(); ++i) {
        if (!rows.at(i).option->isChecked()) continue;
        asked.day = static_cast<LedgerSearch::Day>(i);
        asked.DateFrom = rows.at(i).from->value();
        asked.DateTo = rows.at(i).to->value();
    }
    asked.book = static_cast<LedgerSearch::Book>(chosenOf({ui->optLedger_0, ui->optLedger_1, ui->optLedger_2}));
    asked.balance =
        static_cast<LedgerSearch::Balance>(chosenOf({ui->optBalance_0, ui->optBalance_1, ui->optBalance_2}));
    return asked;
}

void frmCsUrikakeSystem::search() {
    const LedgerSearch search = asked();
    if (PaymentRows(gDbManager.Connection()).count(Ledger::condition(search)) == 0) {
        ShowMessage(Message::Warning, u"対象データがありません。"_qs);
        return;
    }
    openScreen<frmCsUrikakeList>(
        this, [&](frmCsUrikakeList& list) { list.Search = search; }, [](frmCsUrikakeList&) {});
}
