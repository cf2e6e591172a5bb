#include "operations/screens/frmFirstStart.h"

#include "base/basMessage.h"
#include "ui/EntryField.h"
#include "ui/SpokenNames.h"
#include "ui/Style.h"
#include "ui_frmFirstStart.h"

#include <QDir>
#include <QFile>

#include <algorithm>

frmFirstStart::frmFirstStart(const QString& folder, const QString& sampleFolder, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmFirstStart>()), m_folder(folder), m_sampleFolder(sampleFolder) {
    ui->setupUi(this);
    SpokenNames::give(this);
    Style::arrange(this);
    ui->cmdExec->setDefault(true); // nothing is lost by Return: an empty name can be entered later
    ui->lblOfficeFolder->setText(QDir::toNativeSeparators(m_folder));
    ui->txtDatabase->setValue(u"halvane"_qs);
    for (QRadioButton* option : {ui->optPlace_0, ui->optPlace_1})
        connect(option, &QRadioButton::toggled, this, &frmFirstStart::showPlace);
    onClick(ui->cmdFolder, &frmFirstStart::chooseFolder);
    onClick(ui->cmdExec, &frmFirstStart::begin);
    onClick(ui->cmdSample, &frmFirstStart::lookAtSample);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    showPlace();
}

frmFirstStart::~frmFirstStart() = default;

void frmFirstStart::onClick(QAbstractButton* button, void (frmFirstStart::*work)()) {
    connect(button, &QAbstractButton::clicked, this, [this, work] { guarded([&] { (this->*work)(); }); });
}

void frmFirstStart::showPlace() {
    ui->fraServer->setEnabled(ui->optPlace_1->isChecked());
    ui->fraFile->setEnabled(ui->optPlace_0->isChecked());
}

void frmFirstStart::chooseFolder() {
    const QString folder = seams().openFolder({u"データベースのフォルダー"_qs, m_folder});
    if (!folder.isEmpty()) ui->txtFolder->setValue(QDir::toNativeSeparators(folder));
}

NewOffice frmFirstStart::entered() const {
    NewOffice office;
    office.folder = m_folder;
    office.name = ui->txtOfficeNm->value();
    if (ui->optPlace_0->isChecked()) {
        if (const QString folder = ui->txtFolder->value(); !folder.isEmpty()) office.path = folder;
        return office;
    }
    office.provider = Provider::PostgreSQL;
    office.path = ui->txtHost->value();
    office.database = ui->txtDatabase->value();
    office.user = ui->txtUserId->value();
    office.password = ui->txtPassWd->text(); // as it was typed: a blank may be part of it
    return office;
}

bool frmFirstStart::settleFields() {
    const QList<EntryField*> fields = findChildren<EntryField*>();
    const auto wrong = std::find_if(fields.begin(), fields.end(),
                                    [](EntryField* field) { return field->isEnabled() && !field->commit(); });
    if (wrong == fields.end()) return true;
    (*wrong)->complain();
    return false;
}

void frmFirstStart::begin() {
    if (!settleFields()) return;
    const NewOffice office = entered();
    if (office.database.isEmpty()) {
        ShowMessage(Message::EnterValue, u"データベース名"_qs);
        return ui->txtDatabase->setFocus();
    }
    const QString joins = u"データベースはすでにあります。このデータベースを使いますか？\n"
                          u"（内容はそのままです。ここで入力した事業所名は使いません）"_qs;
    if (office.hasDatabase() && ShowMessage(Message::Question, joins) != AnswerYes) return;
    make(office);
}

// Apart from the office itself, which can then be begun without anything to be cleared away.
void frmFirstStart::lookAtSample() {
    NewOffice office;
    office.folder = m_sampleFolder;
    office.withSample = true;
    if (QFile::exists(QDir(m_sampleFolder).filePath(u"Halvane.ini"_qs))) {
        m_chosen = m_sampleFolder;
        return accept();
    }
    make(office);
}

void frmFirstStart::make(const NewOffice& office) {
    SetWaitCursor(true);
    office.make();
    SetWaitCursor(false);
    m_chosen = office.folder;
    accept();
}
