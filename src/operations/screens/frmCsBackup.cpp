#include "operations/screens/frmCsBackup.h"

#include "base/Dates.h"
#include "base/clsProfile.h"
#include "operations/Backup.h"
#include "operations/BackupFiles.h"
#include "operations/screens/BackupFolder.h"
#include "ui/ProgressBox.h"
#include "ui_frmCsBackup.h"

#include <QDir>

frmCsBackup::frmCsBackup(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCsBackup>()) {
    ui->setupUi(this);
    onClick(ui->cmdSearch, [this] { run(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsBackup::~frmCsBackup() = default;

void frmCsBackup::load() {
    const QDateTime now = currentDateTime();
    m_stamp = BackupFiles::stampOf(now);
    ui->lblDate->setText(formatDate(now, u"yyyy/mm/dd hh:nn:ss"_qs));
    BackupFolder::setUp(this, ui->txtDir, ui->cbShowFiler);
    SetWaitCursor(false);
    ui->cmdSearch->setFocus();
}

void frmCsBackup::run() {
    if (!leaveField()) return;
    const QString folder = BackupFolder::of(ui->txtDir);
    Backup::requireFolder(folder);
    BackupFolder::requireDatabase();
    if (!AskOk(u"バックアップには数分の時間がかかる場合があります。\nバックアップを行いますか？"_qs)) return;
    if (QFile::exists(QDir(folder).filePath(BackupFiles::databaseName(m_stamp)))) {
        ShowMessage(Message::Warning, u"既に同じファイルが存在しています。"_qs);
        return;
    }
    QString made;
    const bool done = Office.whileClosed([&] {
        ProgressBox box(this, u"バックアップ"_qs, ProgressBox::Stop::Offered);
        made = Backup::make(ConnectionSettings::fromProfile(clsProfile()), folder, m_stamp, Backup::Made::ByOperator,
                            [&box](const QString& part, qint64 step, qint64 all) { return box.tell(part, step, all); });
    });
    if (!done) return;
    BackupFolder::remember(ui->txtDir);
    ShowMessage(Message::Information, QDir::toNativeSeparators(made) + u"\nバックアップしました。"_qs);
}
