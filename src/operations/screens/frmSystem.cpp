#include "operations/screens/frmSystem.h"

#include "base/basCommon.h"
#include "base/basMessage.h"
#include "db/clsDbManager.h"
#include "reference/clsZipManager.h"
#include "ui/ChoiceBox.h"
#include "ui/FormPieces.h"
#include "ui/NumberField.h"
#include "ui/TextField.h"
#include "ui/basControlUtil.h"
#include "ui_frmSystem.h"

#include <QRadioButton>

namespace {

// The control of each setting. A name of several options stands for opt…_1, opt…_2 and so on, and the setting for the
// number of the chosen one.
const QMap<int, QString>& settingControls() {
    static const QMap<int, QString> names{
        {1, u"cboYstartm"_qs},       {2, u"numSupptax"_qs},      {3, u"numTax"_qs},
        {5, u"txtPrcBaseNo"_qs},     {6, u"txtPasswd"_qs},       {7, u"optPrtSex"_qs},
        {8, u"optPrtBith"_qs},       {9, u"optPrtIns"_qs},       {10, u"optPrtAdr"_qs},
        {11, u"optPrtTel"_qs},       {13, u"txtEstLin"_qs},      {14, u"txtDebug"_qs},
        {15, u"optPayPrtRsv"_qs},    {17, u"optLRKbn"_qs},       {18, u"optRepGran"_qs},
        {19, u"optPicStyl"_qs},      {20, u"txtPrcYear"_qs},     {21, u"optEstPrtSize"_qs},
        {22, u"optEstPrtDay"_qs},    {23, u"optItmPrtSize"_qs},  {24, u"optItmPrtDay"_qs},
        {25, u"optDtlPrtSize"_qs},   {26, u"optDtlPrtDay"_qs},   {27, u"optAskPrtSize"_qs},
        {28, u"optAskPrtDay"_qs},    {29, u"optPayPrtSize"_qs},  {30, u"optPayPrtDay"_qs},
        {31, u"optOpnPrtSize"_qs},   {32, u"optOpnType"_qs},     {33, u"txtTmpSetPlnDate"_qs},
        {34, u"txtCmpltPlnDate"_qs}, {35, u"txtDelvPlnDate"_qs}, {36, u"txtAskPlnDate"_qs},
        {37, u"txtPayInPlnDate"_qs}, {38, u"optEstMode"_qs},     {39, u"optAskPrtRsv"_qs},
        {40, u"optWpnPrtSize"_qs},   {41, u"optWorkSlit"_qs},    {42, u"optAccount"_qs},
        {43, u"optWorkAskSlit"_qs},  {44, u"optUseProductNm"_qs}};
    return names;
}

struct OfficeControl {
    QString clsOffice::*member;
    QString name;
};

const QList<OfficeControl>& officeControls() {
    static const QList<OfficeControl> list{
        {&clsOffice::TradeNm, u"txtTradeNm"_qs}, {&clsOffice::TradeNo, u"txtTradeNo"_qs},
        {&clsOffice::Zip, u"txtZip"_qs},         {&clsOffice::Addr1, u"txtAddr1"_qs},
        {&clsOffice::Addr2, u"txtAddr2"_qs},     {&clsOffice::office, u"txtOffice"_qs},
        {&clsOffice::UserNm, u"txtUserNm"_qs},   {&clsOffice::Tel, u"txtTel"_qs},
        {&clsOffice::Fax, u"txtFax"_qs},         {&clsOffice::Email, u"txtEmail"_qs},
        {&clsOffice::Url, u"txtUrl"_qs},         {&clsOffice::Bank, u"txtBank"_qs},
        {&clsOffice::AcntNo, u"txtAcntNo"_qs},   {&clsOffice::ChkAcnt, u"txtChkAcnt"_qs}};
    return list;
}

constexpr int longestNumber = 6;
constexpr int longestText = 100; // characters of 設定値

bool isOption(const QString& name) { return name.startsWith(u"opt"); }

// The options of one setting stand in a frame of their own, which keeps them apart.
QString frameOf(const QString& name) { return u"fra"_qs + name.mid(3); }

QList<QRadioButton*> optionsOf(const QWidget* frame) { return frame->findChildren<QRadioButton*>(); }

QString numberList(const QList<int>& numbers) {
    QStringList texts;
    for (const int number : numbers) texts << QString::number(number);
    return texts.join(u"、"_qs);
}

} // namespace

frmSystem::frmSystem(QWidget* parent) : Screen(parent), ui(std::make_unique<Ui::frmSystem>()) {
    ui->setupUi(this);
    FormPieces::applyCharacters(this);
    turnPagesByKeys(ui->tabSystem);
    connect(ui->txtZip, &TextField::valueSettled, this, [this] { guarded([this] { takeZip(); }); });
    connect(ui->cboPrcBaseNo, &QComboBox::activated, this,
            [this] { ui->txtPrcBaseNo->setValue(ui->cboPrcBaseNo->data()); });
    connect(ui->txtPrcBaseNo, &NumberField::valueChanged, this, [this] {
        if (!ui->cboPrcBaseNo->chooseByData(ui->txtPrcBaseNo->value())) ui->cboPrcBaseNo->clearChoice();
    });
    onClick(ui->cmdExec, [this] { save(); });
    onClick(ui->cmdEsc, [this] { cancel(); });
    onClick(ui->cmdClose, [this] { close(); });
}

frmSystem::~frmSystem() = default;

// --- showing ---

void frmSystem::load() {
    fillLists();
    limitFields();
    showStored();
    tellMissing();
    ui->tabSystem->setCurrentIndex(0);
    ui->txtTradeNm->setFocus();
}

void frmSystem::fillLists() {
    FillCommaList(ui->cboYstartm, u"1,2,3,4,5,6,7,8,9,10,11,12"_qs);
    BeginList(ui->cboPrcBaseNo);
    const QStringList tiers{u"大人"_qs, u"中人"_qs, u"小人"_qs}; // in the order of the price columns
    for (int i = 0; i < tiers.size(); ++i) AddListEntry(ui->cboPrcBaseNo, tiers.at(i), QString::number(i + 1));
}

// What the columns hold; a setting's is longer than any of these.
void frmSystem::limitFields() {
    const Schema::Table* office = Schema::table(gOfficeManager.table());
    for (const OfficeControl& field : officeControls())
        findChild<EntryField*>(field.name)
            ->setMaxLength(office->column(gOfficeManager.column(field.member).name)->size);
    for (const QString& name : settingControls())
        if (auto* field = qobject_cast<EntryField*>(control(name))) field->setMaxLength(longestNumber);
    for (TextField* field : {ui->txtPasswd, ui->txtDebug}) field->setMaxLength(longestText);
}

void frmSystem::showStored() {
    QString lacks;
    const auto found = SystemProperties::read(lacks);
    if (!found) throw AppError(GetMessageText(Message::NotFound, lacks), u"frmSystem"_qs);
    m_stored = *found;
    SystemProperties shown = m_stored;
    shown.addMissing(settingControls().keys());
    m_stored.missing = shown.missing;
    showProperties(shown);
    m_shown = entered();
}

void frmSystem::tellMissing() {
    if (m_stored.missing.isEmpty()) return;
    ShowMessage(Message::Warning,
                u"システム設定の番号 %1 の行がありません。\n"
                u"初期値を表示しています。反映すると行が作られます。"_qs.arg(numberList(m_stored.missing)));
}

void frmSystem::showProperties(const SystemProperties& properties) {
    for (const OfficeControl& field : officeControls())
        findChild<EntryField*>(field.name)->setValue(properties.office.*field.member);
    for (const int No : settingControls().keys()) showSetting(No, properties.settings.value(No));
}

// A value that no control can show stays as it is stored.
SystemProperties frmSystem::entered() const {
    SystemProperties properties = m_stored;
    for (const OfficeControl& field : officeControls())
        properties.office.*field.member = findChild<EntryField*>(field.name)->value();
    for (const int No : settingControls().keys()) properties.settings.insert(No, enteredSetting(No));
    return properties;
}

QWidget* frmSystem::control(const QString& name) const { return findChild<QWidget*>(name); }

void frmSystem::showSetting(int No, const QString& value) {
    const QString name = settingControls().value(No);
    if (isOption(name)) {
        for (QRadioButton* option : optionsOf(control(frameOf(name)))) {
            option->setAutoExclusive(false); // or one of them could not be turned off
            option->setChecked(option->objectName() == name + u'_' + value);
            option->setAutoExclusive(true);
        }
    } else if (auto* list = qobject_cast<ChoiceBox*>(control(name))) {
        list->setText(value);
    } else {
        qobject_cast<EntryField*>(control(name))->setValue(value);
    }
}

QString frmSystem::enteredSetting(int No) const {
    const QString name = settingControls().value(No);
    if (const auto* list = qobject_cast<ChoiceBox*>(control(name))) return list->text();
    if (!isOption(name)) return qobject_cast<EntryField*>(control(name))->value();
    for (const QRadioButton* option : optionsOf(control(frameOf(name))))
        if (option->isChecked()) return option->objectName().section(u'_', -1);
    return m_stored.settings.value(No);
}

bool frmSystem::isEdited() const { return !(entered() == m_shown); }

void frmSystem::takeZip() {
    const QString zip = FormatZip(ui->txtZip->value());
    if (zip != ui->txtZip->value()) return ui->txtZip->setValue(zip); // which settles once more
    clsZip found;
    if (zip.isEmpty() || zip == m_shown.office.Zip || !gZipManager.GetZipData(found, zip, {}, {}, {})) return;
    ui->txtAddr1->setValue(found.Pref + found.City + found.Town);
}

// --- commands ---

void frmSystem::cancel() {
    if (isEdited() && ShowMessage(Message::AskCancel, u"システム設定"_qs) == AnswerYes) showStored();
}

bool frmSystem::check(const SystemProperties& wanted) {
    const auto complaint = wanted.complaintAgainst(m_shown);
    if (!complaint) return true;
    QWidget* field = control(settingControls().value(complaint->No));
    ShowMessage(complaint->message, complaint->name);
    for (int page = 0; page < ui->tabSystem->count(); ++page)
        if (ui->tabSystem->widget(page)->isAncestorOf(field)) ui->tabSystem->setCurrentIndex(page);
    field->setFocus();
    return false;
}

// Another machine may have been here since the screen was filled.
bool frmSystem::mayOverwrite() {
    QString lacks;
    const auto now = SystemProperties::read(lacks);
    if (now && *now == m_stored) return true;
    return ShowMessage(Message::QuestionNo, u"他の端末で更新されています。上書きしますか？"_qs) == AnswerYes;
}

bool frmSystem::save() {
    if (!leaveField()) return false;
    const SystemProperties wanted = entered();
    if (!check(wanted) || !mayOverwrite()) return false;
    wanted.save(gDbManager.Connection(), m_shown);
    m_stored = m_shown = wanted; // also when nothing can be read any more
    m_stored.missing.clear();
    showStored();
    ShowMessage(Message::Information, u"保存しました。"_qs);
    return true;
}

bool frmSystem::queryUnload() {
    if (!Loaded || !isEdited()) return true;
    switch (ShowMessage(Message::AskSave, u"システム情報"_qs)) {
    case AnswerYes:
        return save();
    case AnswerNo:
        return true;
    default:
        return false;
    }
}
