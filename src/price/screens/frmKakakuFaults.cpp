#include "price/screens/frmKakakuFaults.h"

#include "base/Numbers.h"
#include "db/Schema.h"
#include "operations/PriceRevision.h"
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

bool frmKakakuFaults::mayTake(QWidget* parent, const QString& folder, const std::function<void()>& pause) {
    QList<PriceFiles::Fault> faults;
    const QStringList files = PriceRevision::filesIn(folder);
    for (qsizetype i = 0; i < files.size(); ++i)
        faults << PriceFiles::faultsOf(Schema::priceTables().at(i), files.at(i), pause);
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
