#include "price/screens/frmKakakuFaults.h"

#include "base/Numbers.h"
#include "ui/FormPieces.h"
#include "ui_frmKakakuFaults.h"

frmKakakuFaults::frmKakakuFaults(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmKakakuFaults>()) {
    ui->setupUi(this);
    ui->flxFault->setColumns({GridColumn::of(u"ファイル"_qs, 20), GridColumn::of(u"行"_qs, 8, GridColumn::Number),
                              GridColumn::of(u"理由"_qs, 60)});
    FormPieces::stretchColumn(ui->flxFault, 2);
    onClick(ui->cbExec, [this] {
        GoOn = true;
        close();
    });
    onClick(ui->cbClose, [this] { close(); });
}

frmKakakuFaults::~frmKakakuFaults() = default;

bool frmKakakuFaults::mayGoOn(QWidget* parent, const QList<PriceFiles::Fault>& faults) {
    if (faults.isEmpty()) return true;
    bool goesOn = false;
    openScreen<frmKakakuFaults>(
        parent, [&](frmKakakuFaults& screen) { screen.Faults = faults; },
        [&](frmKakakuFaults& screen) { goesOn = screen.GoOn; });
    return goesOn;
}

void frmKakakuFaults::load() {
    ui->flxFault->setSource(static_cast<int>(Faults.size()), [this](int place) -> QStringList {
        const PriceFiles::Fault& fault = Faults.at(place);
        return {fault.file, fault.line > 0 ? QString::number(fault.line) : QString(), fault.reason};
    });
    ui->txtCount->setText(formatThousands(Faults.size()) + u"件"_qs);
    ui->cbClose->setFocus();
}
