#include "reference/screens/frmZipUpdate.h"

#include "base/Numbers.h"
#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "reference/clsZipManager.h"
#include "ui_frmZipUpdate.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

namespace {

constexpr int mediumType = 5; // a drive of read-only discs
const QString delivered = u"ziplist.db"_qs;

// The delivered database or the published files of a folder.
QStringList found(const QString& folder) {
    for (const QString& place : {folder, QDir(folder).filePath(u"Ziplist"_qs), QDir(folder).filePath(u"ZipList"_qs)}) {
        const QString database = QDir(place).filePath(delivered);
        if (QFileInfo(database).isFile()) return {database};
        const QStringList published = PostalFiles::find(place);
        if (!published.isEmpty()) return published;
    }
    return {};
}

bool isDatabase(const QString& file) { return file.endsWith(u".db"_qs, Qt::CaseInsensitive); }

} // namespace

frmZipUpdate::frmZipUpdate(QWidget* parent) : ListScreen(parent), ui(std::make_unique<Ui::frmZipUpdate>()) {
    ui->setupUi(this);
    connect(ui->opData_1, &QRadioButton::toggled, ui->fraDir, &QWidget::setEnabled);
    onClick(ui->cbShowFiler, [this] { chooseFolder(); });
    onClick(ui->cbShowFile, [this] { chooseFile(); });
    onClick(ui->cbZipData, [this] { run(); });
    onClick(ui->cbClose, [this] { close(); });
}

frmZipUpdate::~frmZipUpdate() = default;

void frmZipUpdate::load() {
    ui->opData_1->setChecked(true);
    ui->lblTotalCount->setText(formatThousands(gZipManager.GetCount()));
    ui->txtDir->setFocus();
}

// --- sources ---

void frmZipUpdate::chooseFolder() {
    const QString chosen =
        seams().openFolder({u"郵便番号データのフォルダを選択してください。"_qs, ResolvePath(ui->txtDir->value())});
    if (!chosen.isEmpty()) ui->txtDir->setValue(chosen);
}

void frmZipUpdate::chooseFile() {
    const QString chosen = seams().openFile({u"郵便番号データのファイルを選択してください。"_qs,
                                             ResolvePath(ui->txtDir->value()),
                                             {},
                                             {u"郵便番号データ (*.csv *.CSV *.zip *.ZIP *.db)"_qs}});
    if (!chosen.isEmpty()) ui->txtDir->setValue(chosen);
}

QStringList frmZipUpdate::sourcesOnMedium() const {
    const QString drive = FindDriveByType(mediumType);
    const QStringList files = drive.isEmpty() ? QStringList() : found(drive);
    if (files.isEmpty()) ShowMessage(Message::Warning, u"郵便番号ファイルを正しくセットしてください。"_qs);
    return files;
}

QStringList frmZipUpdate::sourcesInFolder() const {
    const QString entered = ResolvePath(ui->txtDir->value());
    if (entered.isEmpty()) {
        ShowMessage(Message::Information, u"郵便番号簿データベースが格納されているフォルダを指定してください。"_qs);
        return {};
    }
    const QStringList files = QFileInfo(entered).isFile() ? QStringList{entered} : found(entered);
    if (files.isEmpty())
        ShowMessage(Message::Warning, u"指定されたフォルダに必要な郵便番号ファイルが存在しませんでした。"_qs);
    return files;
}

QStringList frmZipUpdate::sources() const { return ui->opData_0->isChecked() ? sourcesOnMedium() : sourcesInFolder(); }

// --- import ---

void frmZipUpdate::showCount() {
    const QString count = formatThousands(gZipManager.GetCount());
    ui->lblTotalCount->setText(count);
    ui->lblCount->setText(count);
    ui->prgZip->setRange(0, 1);
    ui->prgZip->setValue(1);
}

// The counts on the screen are those of the book, also when it stays as it was.
void frmZipUpdate::replaceBook(const std::function<void()>& fill) {
    const QString before = ui->lblTotalCount->text();
    auto putBack = qScopeGuard([this, before] {
        ui->lblTotalCount->setText(before);
        ui->lblCount->setText(u"0"_qs);
        ui->prgZip->setValue(0);
    });
    Transaction transaction(gDbManager.Connection());
    fill();
    showCount();
    transaction.commit();
    putBack.dismiss();
}

void frmZipUpdate::importDatabase(const QString& file) {
    replaceBook([&file] { gZipManager.ImportCsv(file); });
}

// Read ahead of the transaction, in which others wait.
void frmZipUpdate::importPublished(const QStringList& files, const Pause& pause) {
    PostalFiles::Book book;
    for (const QString& file : files) PostalFiles::read(file, book);
    replaceBook([&] {
        ui->prgZip->setRange(0, static_cast<int>(book.size()));
        ui->lblTotalCount->setText(formatThousands(book.size()));
        gZipManager.ImportPublished(book, [&](qint64 rows) {
            ui->prgZip->setValue(static_cast<int>(rows));
            ui->lblCount->setText(formatThousands(rows));
            pause();
        });
    });
}

void frmZipUpdate::run() {
    if (!leaveField()) return;
    const QStringList files = sources();
    if (files.isEmpty()) return;
    whileBusy(u"取込中"_qs, [&](const Pause& pause) {
        isDatabase(files.first()) ? importDatabase(files.first()) : importPublished(files, pause);
    });
    ShowMessage(Message::Information, u"郵便番号辞書取込が完了しました。"_qs);
}
