#include "app/frmMenu.h"

#include "app/DraftOffer.h"
#include "app/MenuOpeners.h"
#include "app/basMain.h"
#include "base/AppError.h"
#include "base/Application.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "db/TableMaintenance.h"
#include "db/clsDbManager.h"
#include "estimates/RecentOrders.h"
#include "operations/AutoBackup.h"
#include "ui/ProgressBox.h"
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
    onClick(ui->cmdDraftOpen,
            [this] { withNewestDraft([this](const KeptDraft& draft) { DraftOffer::open(this, draft); }); });
    onClick(ui->cmdDraftDrop, [this] { withNewestDraft(DraftOffer::drop); });
    connectOpeners();
    connect(ui->lstRecent, &QListWidget::itemDoubleClicked, this, [this] { guarded([this] { openRecent(); }); });
    onReturn(ui->lstRecent, [this] { openRecent(); });
    showGroup(0);
}

frmMenu::~frmMenu() = default;

void frmMenu::connectOpeners() {
    const auto ownButtons = m_groupButtons + QList<QPushButton*>{ui->cbEnd, ui->cmdDraftOpen, ui->cmdDraftDrop};
    for (QPushButton* button : findChildren<QPushButton*>()) {
        if (ownButtons.contains(button)) continue;
        const MenuOpener open = menuOpeners().value(button->objectName());
        button->setEnabled(static_cast<bool>(open));
        onClick(button, [this, open] {
            open(this);
            showBackupAge();
            showDrafts();
            showRecent();
        });
    }
}

void frmMenu::load() {
    ui->lblVer->setText(programVersion());
    TableMaintenance(gDbManager.Connection());
    showBackupAge();
    showRecent();
    tellFailedBackup();
    showDrafts();
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

// --- the estimates opened last ---

// A list that cannot be read is left out: whoever opens a screen next is told why.
void frmMenu::showRecent() {
    ui->lstRecent->clear();
    try {
        for (const RecentOrders::Order& order : RecentOrders::list()) {
            auto* line =
                new QListWidgetItem(QStringList{order.EstNo, order.Name, order.EstNm}.join(u'　'), ui->lstRecent);
            line->setData(Qt::UserRole, order.EstId);
        }
    } catch (const AppError& error) {
        writeLog(error.description());
    }
    const int lines = ui->lstRecent->count();
    ui->fraRecent->setVisible(lines > 0);
    if (lines == 0) return;
    ui->lstRecent->setCurrentRow(0);
    ui->lstRecent->setFixedHeight(ui->lstRecent->sizeHintForRow(0) * lines + 2 * ui->lstRecent->frameWidth());
}

void frmMenu::openRecent() {
    const QListWidgetItem* line = ui->lstRecent->currentItem();
    if (!line) return;
    openEstimate(this, line->data(Qt::UserRole).toString());
    showBackupAge();
    showRecent();
    ui->lstRecent->setFocus();
}

// Nothing that happens to the backup keeps the program from ending.
void frmMenu::backUp() {
    ProgressBox box(this, u"自動バックアップ"_qs, ProgressBox::Stop::NotOffered);
    SetWaitCursor(true);
    AutoBackup::run([&box](const QString& part, qint64 done, qint64 all) { return box.tell(part, done, all); });
    SetWaitCursor(false);
}

void frmMenu::showBackupAge() {
    const AutoBackup::Age age = AutoBackup::age();
    ui->lblBackup->setText(age.text);
    ui->lblBackup->setStyleSheet(age.isLong ? u"color: #B3261E; font-weight: bold;"_qs : QString());
}

void frmMenu::tellFailedBackup() {
    const QString failure = AutoBackup::takeFailure();
    if (!failure.isEmpty())
        ShowMessage(Message::Warning, u"前回の終了時に、自動バックアップができませんでした。\n"_qs + failure);
}

// --- work that was left behind ---

void frmMenu::showDrafts() {
    m_drafts = KeptDrafts::left();
    const QString text = DraftOffer::text(m_drafts);
    ui->fraDrafts->setVisible(!text.isEmpty());
    ui->lblDraft->setText(text);
    for (QWidget* command : {ui->cmdDraftOpen, ui->cmdDraftDrop}) command->setVisible(!m_drafts.isEmpty());
}

void frmMenu::withNewestDraft(const std::function<void(const KeptDraft&)>& work) {
    if (m_drafts.isEmpty()) return;
    const KeptDraft newest = m_drafts.first();
    work(newest);
    showDrafts();
    showRecent();
}

bool frmMenu::queryUnload() {
    guarded([this] {
        if (Loaded && AutoBackup::isDue()) backUp();
    });
    EndProgram();
    return true;
}
