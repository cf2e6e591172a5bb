#include "price/screens/frmCalcPrice.h"

#include "base/Money.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "ui_frmCalcPrice.h"

#include <QScreen>

namespace {

// The whole form stays on the display, also beside a button at its edge.
QPoint onDisplay(const QWidget* form, QPoint place) {
    const QRect area = form->screen()->availableGeometry();
    const QRect room = area.adjusted(0, 0, -form->width(), -form->height());
    return {std::max(area.left(), std::min(place.x(), room.right())),
            std::max(area.top(), std::min(place.y(), room.bottom()))};
}

} // namespace

frmCalcPrice::frmCalcPrice(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCalcPrice>()) {
    ui->setupUi(this);
    connect(ui->numPercent, &NumberField::valueChanged, this, [this] { guarded([this] { showPrice(); }); });
    onClick(ui->cmdExec, [this] { takeOver(); });
    onClick(ui->cmdCancel, [this] { close(); });
}

frmCalcPrice::~frmCalcPrice() = default;

void frmCalcPrice::load() {
    move(onDisplay(this, {xpos, ypos}));
    ui->numPercent->setValue(u"100"_qs);
    showPrice();
    Edited = false;
    ui->numPercent->setFocus();
}

void frmCalcPrice::showPrice() {
    ui->lblPrice->setText(formatThousands(Money::percentage(ui->numPercent->value(), AskDiff)));
}

void frmCalcPrice::takeOver() {
    const qint32 price = ToInt(formatWhole(ui->lblPrice->text()));
    AskPrice = QString::number(price);
    Edited =
        price != 0 || ShowMessage(Message::Question, u"金額 [　0] が設定されますがよろしいですか？"_qs) == AnswerYes;
    close();
}
