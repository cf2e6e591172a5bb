#include "operations/screens/frmCsRestore.h"

#include "base/AppError.h"
#include "base/clsProfile.h"
#include "operations/BackupFiles.h"
#include "operations/Restore.h"
#include "operations/screens/BackupFolder.h"
#include "ui/ProgressBox.h"
#include "ui_frmCsRestore.h"

#include <QDir>
#include <QFileInfo>

frmCsRestore::frmCsRestore(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmCsRestore>()) {
    ui->setupUi(this);
    connect(ui->txtDir, &TextField::valueSettled, this, [this] { guarded([this] { fillList(); }); });
    onClick(ui->cmdSearch_0, [this] { restore(); });
    onClick(ui->cmdSearch_1, [this] { remove(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmCsRestore::~frmCsRestore() = default;

void frmCsRestore::load() {
    BackupFolder::setUp(this, ui->txtDir, ui->cbShowFiler);
    fillList();
    ui->lstBackupdata->setFocus();
}

void frmCsRestore::fillList() {
    ui->lstBackupdata->clear();
    for (const QString& stamp : BackupFiles::list(BackupFolder::of(ui->txtDir)))
        ui->lstBackupdata->addItem(BackupFiles::shown(stamp));
    ui->lstBackupdata->scrollToBottom();
    ui->lblFolder->setText(ui->lstBackupdata->count() == 0
                               ? u"バックアップデータはありません"_qs
                               : ui->txtDir->value() + u"のバックアップデータをリストアします。"_qs);
}

QString frmCsRestore::chosenStamp() const {
    if (ui->lstBackupdata->count() == 0) {
        ShowMessage(Message::Warning, u"バックアップされているデータが存在しません。"_qs);
        return {};
    }
    const auto chosen = ui->lstBackupdata->selectedItems();
    if (!chosen.isEmpty()) return BackupFiles::stampOfShown(chosen.first()->text());
    ShowMessage(Message::Warning, u"バックアップデータを選択してください。"_qs);
    return {};
}

void frmCsRestore::remove() {
    const QString stamp = chosenStamp();
    if (stamp.isEmpty()) return;
    const QString folder = BackupFolder::of(ui->txtDir);
    Backup::requireFolder(folder);
    if (!AskOk(u"バックアップデータを削除します。\nよろしいでしょうか？"_qs)) return;
    Backup::remove(folder, stamp);
    fillList();
}

void frmCsRestore::restore() {
    const QString stamp = chosenStamp();
    if (stamp.isEmpty()) return;
    const QString folder = BackupFolder::of(ui->txtDir);
    Backup::requireFolder(folder);
    BackupFolder::requireDatabase();
    if (!AskOk(u"バックアップデータのリストアを行います。\nよろしいでしょうか？"_qs)) return;
    const QString file = QDir(folder).filePath(BackupFiles::databaseName(stamp));
    if (!QFileInfo(file).isFile())
        throw AppError(u"バックアップ先のファイルが存在しません。\n"_qs + QDir::toNativeSeparators(file),
                       u"Restore"_qs);
    Backup::Proof proof;
    const bool done = Office.whileClosed([&] {
        ProgressBox box(this, u"リストア"_qs, ProgressBox::Stop::Offered);
        proof =
            Restore::run(ConnectionSettings::fromProfile(clsProfile()), file,
                         [&box](const QString& part, qint64 step, qint64 all) { return box.tell(part, step, all); });
    });
    if (!done) return;
    const QString older = u"\n\n古いバージョン（%1）のバックアップです。次の起動のときに新しい形に直されます。"_qs;
    ShowMessage(Message::Information,
                u"リストアしました。"_qs + (proof.isOlder() ? older.arg(proof.version) : QString()));
}
