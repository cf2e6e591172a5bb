#include "estimates/screens/frmCsEstimate.h"

#include "estimates/screens/FormPieces.h"
#include "ui_CsEstimateBasicPage.h"
#include "ui_frmCsEstimate.h"

#include <QShortcut>

frmCsEstimate::frmCsEstimate(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCsEstimate>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setUpTabKeys();
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsEstimate::~frmCsEstimate() = default;

// Alt+1 to Alt+6 turn the pages, as the captions themselves have no letter.
void frmCsEstimate::setUpTabKeys() {
    for (int page = 0; page < ui->tabCsEst->count(); ++page) {
        const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + page));
        auto* turn = new QShortcut(keys, this);
        connect(turn, &QShortcut::activated, this, [this, page] {
            if (leaveField()) ui->tabCsEst->setCurrentIndex(page);
        });
        ui->tabCsEst->setTabToolTip(page, keys.toString(QKeySequence::NativeText));
    }
}

void frmCsEstimate::load() { ui->pagBasic->ui->txtName1->setFocus(); }
