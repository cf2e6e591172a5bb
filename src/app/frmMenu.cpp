#include "app/frmMenu.h"

#include "app/MenuOpeners.h"
#include "app/basMain.h"
#include "base/Application.h"
#include "db/TableMaintenance.h"
#include "db/clsDbManager.h"
#include "ui_frmMenu.h"

#include <QStyle>

#include <algorithm>

namespace {

constexpr int chosenSize = 10;
constexpr int plainSize = 9;

void markChosen(QPushButton* button, bool chosen) {
    QFont font = button->font();
    font.setBold(chosen);
    font.setPointSize(chosen ? chosenSize : plainSize);
    button->setFont(font);
    button->setProperty("chosen", chosen);
    button->style()->unpolish(button);
    button->style()->polish(button);
}

} // namespace

frmMenu::frmMenu(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmMenu>()) {
    ui->setupUi(this);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    m_groupButtons = {ui->cbSelectMenu_0, ui->cbSelectMenu_1, ui->cbSelectMenu_2, ui->cbSelectMenu_3,
                      ui->cbSelectMenu_4};
    m_groupFrames = {ui->fraMenu_0, ui->fraMenu_1, ui->fraMenu_2, ui->fraMenu_3, ui->fraMenu_4};
    for (int i = 0; i < m_groupButtons.size(); ++i) onClick(m_groupButtons.at(i), [this, i] { enterGroup(i); });
    onClick(ui->cbEnd, [this] { close(); });
    connectOpeners();
    showGroup(0);
}

frmMenu::~frmMenu() = default;

void frmMenu::connectOpeners() {
    const auto ownButtons = m_groupButtons + QList<QPushButton*>{ui->cbEnd};
    for (QPushButton* button : findChildren<QPushButton*>()) {
        if (ownButtons.contains(button)) continue;
        const MenuOpener open = menuOpeners().value(button->objectName());
        button->setEnabled(static_cast<bool>(open));
        onClick(button, [this, open] { open(this); });
    }
}

void frmMenu::load() {
    ui->lblVer->setText(programVersion());
    TableMaintenance(gDbManager.Connection());
    ui->cbSelectMenu_0->setFocus();
}

// Return then starts the first work of the group, and Tab leads to the others.
void frmMenu::enterGroup(int index) {
    showGroup(index);
    const auto openers = m_groupFrames.at(index)->findChildren<QPushButton*>();
    const auto first =
        std::find_if(openers.begin(), openers.end(), [](QPushButton* opener) { return opener->isEnabled(); });
    if (first != openers.end()) (*first)->setFocus();
}

void frmMenu::showGroup(int index) {
    for (int i = 0; i < m_groupFrames.size(); ++i) {
        m_groupFrames.at(i)->setVisible(i == index);
        markChosen(m_groupButtons.at(i), i == index);
    }
}

bool frmMenu::queryUnload() {
    TerminateApp();
    return true;
}
