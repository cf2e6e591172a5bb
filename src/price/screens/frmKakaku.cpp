#include "price/screens/frmKakaku.h"

#include "base/Application.h"
#include "base/Dates.h"
#include "base/Text.h"
#include "base/basMessage.h"
#include "db/AskingOutside.h"
#include "db/Schema.h"
#include "db/clsDbManager.h"
#include "price/PriceManagers.h"
#include "price/screens/NarrowingBoxes.h"
#include "price/screens/PriceForms.h"
#include "reference/ReferenceManagers.h"
#include "ui/ChoiceBox.h"
#include "ui/FormPieces.h"
#include "ui/NumberField.h"
#include "ui/TextField.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int digitsOfPrice = 9;
constexpr int digitsOfWhole = 4;
constexpr int widestText = 44; // half-width characters
const QString automatic = u"(自動採番)"_qs;
const QString stampForm = u"yyyy/mm/dd hh:nn:ss"_qs;

QLabel* labelOf(const QString& text) { return new QLabel(text + u'：'); }

QLabel* shownValue(const QString& name, int characters) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("shownValue", true);
    label->setProperty("characters", characters);
    return label;
}

// As many characters as the column holds; 0 for one without a limit.
int sizeOf(const QString& table, const QString& column) {
    const Schema::Column* known = Schema::table(table)->column(column);
    return known ? known->size : 0;
}

QWidget* newControl(const PriceField& field, int size) {
    const int wide = size > 0 ? qMin(2 * size + 2, widestText) : widestText;
    switch (field.kind) {
    case PriceField::Choice: {
        auto* box = new ChoiceBox;
        box->setEditable(true);
        box->setMaxLength(size);
        box->setProperty("characters", wide);
        return box;
    }
    case PriceField::Assist:
    case PriceField::AssistValue: {
        auto* box = new ChoiceBox;
        box->setProperty("mayBeEmpty", true);
        return box;
    }
    case PriceField::Words: {
        auto* text = new TextField;
        text->setMaxLength(size);
        text->setProperty("characters", wide);
        return text;
    }
    case PriceField::Whole:
    case PriceField::Price:
        break;
    }
    auto* number = new NumberField;
    number->setMaxLength(field.kind == PriceField::Price ? digitsOfPrice : digitsOfWhole);
    number->setProperty("characters", digitsOfPrice + 4);
    return number;
}

bool holdsNumberOfEntry(const PriceField& field) {
    return field.kind == PriceField::Assist || field.kind == PriceField::AssistValue;
}

QString valueOf(const PriceField& field, const QWidget* control) {
    if (const auto* box = qobject_cast<const ChoiceBox*>(control))
        return box->data().isEmpty() || !holdsNumberOfEntry(field) ? Text::rightTrimmed(box->text()) : box->data();
    return Text::rightTrimmed(qobject_cast<const EntryField*>(control)->value());
}

void showValue(const PriceField& field, QWidget* control, const QString& value) {
    if (auto* entry = qobject_cast<EntryField*>(control)) return entry->setValue(value);
    auto* box = qobject_cast<ChoiceBox*>(control);
    // A number that no entry has is shown as it stands, and kept.
    if (!holdsNumberOfEntry(field) || !box->chooseByData(value)) box->setText(value);
}

} // namespace

frmKakaku::frmKakaku(QWidget* parent, const PriceForm& form)
    : EditScreen(parent, {form.title, form.subject, form.subject}), m_form(form), m_table(priceTable(form.table)) {
    setObjectName(form.screen);
    auto* rows = new QVBoxLayout(this);
    auto* fraData = new QFrame;
    fraData->setObjectName(u"fraData"_qs);
    auto* grid = new QGridLayout(fraData);
    grid->setContentsMargins({});
    grid->setColumnStretch(4, 1);
    addFields(grid);
    addStamps(grid);
    rows->addWidget(fraData);
    rows->addStretch(1);
    addCommands(rows);
    FormPieces::applyCharacters(this);
    connect(findChild<QCheckBox*>(u"chkUseFlg"_qs), &QCheckBox::toggled, this, [this] { noteEdit(); });
    onClick(findChild<QPushButton*>(u"cbExec"_qs), [this] {
        if (save()) close();
    });
    setUpEditing({{fraData, findChild<QWidget*>(u"cbExec"_qs)},
                  {},
                  findChild<QPushButton*>(u"cbEsc"_qs),
                  findChild<QPushButton*>(u"cbDel"_qs),
                  findChild<QPushButton*>(u"cbClose"_qs),
                  nullptr});
}

// --- the form ---

void frmKakaku::addFields(QGridLayout* grid) {
    grid->addWidget(labelOf(u"ID"_qs), 0, 0);
    grid->addWidget(shownValue(u"txId"_qs, 12), 0, 1);
    QList<ChoiceBox*> boxes;
    for (const PriceField& field : m_form.fields) {
        QWidget* control = newControl(field, sizeOf(m_form.table, field.column));
        control->setObjectName(field.control);
        const int row = field.besideLast ? grid->rowCount() - 1 : grid->rowCount();
        const int column = field.besideLast ? 2 : 0;
        grid->addWidget(labelOf(field.label), row, column);
        grid->addWidget(control, row, column + 1, 1, field.besideLast || field.kind == PriceField::Price ? 1 : 3,
                        Qt::AlignLeft);
        if (field.kind == PriceField::Choice) boxes << qobject_cast<ChoiceBox*>(control);
    }
    m_boxes = new NarrowingBoxes(boxes, {}, false, this);
}

void frmKakaku::addStamps(QGridLayout* grid) {
    int row = grid->rowCount();
    auto* retired = new QCheckBox;
    retired->setObjectName(u"chkUseFlg"_qs);
    grid->addWidget(labelOf(u"無効"_qs), row, 0);
    grid->addWidget(retired, row, 1);
    grid->addWidget(labelOf(u"登録日"_qs), ++row, 0);
    grid->addWidget(shownValue(u"dtAddDate"_qs, 21), row, 1);
    grid->addWidget(labelOf(u"更新日"_qs), row, 2);
    grid->addWidget(shownValue(u"dtUpdate"_qs, 21), row, 3);
    grid->addWidget(labelOf(u"編集者"_qs), ++row, 0);
    auto* editor = new QHBoxLayout;
    editor->addWidget(shownValue(u"txUserNo"_qs, 6));
    editor->addWidget(shownValue(u"txUserNm"_qs, 24));
    editor->addStretch(1);
    grid->addLayout(editor, row, 1, 1, 3);
}

void frmKakaku::addCommands(QVBoxLayout* rows) {
    auto* commands = new QHBoxLayout;
    const auto add = [commands](const QString& name, const QString& text) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        commands->addWidget(button);
        return button;
    };
    add(u"cbExec"_qs, u"反映(&U)"_qs);
    add(u"cbEsc"_qs, u"キャンセル(&E)"_qs)->setProperty("leavesUnchecked", true);
    add(u"cbDel"_qs, u"削除(&D)"_qs);
    commands->addStretch(1);
    add(u"cbClose"_qs, u"閉じる(&X)"_qs)->setProperty("leavesUnchecked", true);
    rows->addLayout(commands);
}

QWidget* frmKakaku::controlOf(const PriceField& field) const { return findChild<QWidget*>(field.control); }

QWidget* frmKakaku::firstField() const { return controlOf(m_form.fields.first()); }

// --- showing ---

void frmKakaku::fillLists() {
    QStringList columns;
    for (const PriceField& field : m_form.choices()) columns << field.column;
    m_boxes->setTable(m_table, columns);
    for (const PriceField& field : m_form.fields) {
        auto* box = qobject_cast<ChoiceBox*>(controlOf(field));
        if (field.kind == PriceField::Assist) FillAssistList(box, field.group);
        if (field.kind == PriceField::AssistValue) FillAssistValueList(box, field.group);
    }
}

void frmKakaku::showStored() {
    m_loaded = EditMode == Add ? PriceRow() : m_table.storedRow(ItemId);
    show(m_loaded);
}

void frmKakaku::show(const PriceRow& row) {
    QStringList texts;
    for (const PriceField& field : m_form.choices()) texts << row.value(field.column);
    m_boxes->setTexts(texts);
    for (const PriceField& field : m_form.fields)
        if (field.kind != PriceField::Choice) showValue(field, controlOf(field), row.value(field.column));
    findChild<QCheckBox*>(u"chkUseFlg"_qs)->setChecked(row.value(u"有効Flg"_qs) == u"1");
    const PriceRow stamped = isNew() ? PriceRow() : row;
    const QString user = stamped.value(u"編集者No"_qs);
    clsStaff staff;
    if (!user.isEmpty()) gStaffManager.GetData(user, staff);
    const auto tell = [this](const QString& name, const QString& text) { findChild<QLabel*>(name)->setText(text); };
    tell(u"txId"_qs, isNew() ? automatic : stamped.value(u"ID"_qs));
    tell(u"dtAddDate"_qs, formatDate(stamped.value(u"登録日"_qs), stampForm));
    tell(u"dtUpdate"_qs, formatDate(stamped.value(u"更新日"_qs), stampForm));
    tell(u"txUserNo"_qs, user);
    tell(u"txUserNm"_qs, staff.StaffNm);
}

// --- saving ---

PriceRow frmKakaku::collect() const {
    PriceRow row = isNew() ? PriceRow() : m_loaded;
    for (const PriceField& field : m_form.fields) row.insert(field.column, valueOf(field, controlOf(field)));
    row.insert(u"有効Flg"_qs, findChild<QCheckBox*>(u"chkUseFlg"_qs)->isChecked() ? u"1"_qs : u"0"_qs);
    row.insert(u"編集者No"_qs, QString::number(gUserNo));
    return row;
}

// The first field that a row like this must have and has not; null when all are there.
QWidget* frmKakaku::missing(const PriceRow& row) const {
    for (const PriceField& field : m_form.fields)
        if (field.required && field.required(row.value(u"種目"_qs)) && row.value(field.column).trimmed().isEmpty())
            return controlOf(field);
    return nullptr;
}

bool frmKakaku::mayOverwrite() const {
    if (isNew() || m_table.storedRow(ItemId) == m_loaded) return true;
    return ShowMessage(Message::QuestionNo, u"他の端末で更新されています。上書きしますか？"_qs) == AnswerYes;
}

bool frmKakaku::save() {
    if (!leaveField()) return false;
    const PriceRow row = collect();
    if (QWidget* control = missing(row)) {
        ShowMessage(Message::Warning, u"必要なデータが入力されていません。"_qs);
        control->setFocus();
        return false;
    }
    Connection& connection = gDbManager.Connection();
    PriceRow stored;
    const bool saved = AskingOutside::run(connection, [&] {
        connection.lockForWriting(u"採番"_qs); // two machines that add rows take turns
        stored = row;
        if (!mayOverwrite()) return false;
        m_table.saveRow(stored);
        return true;
    });
    if (!saved) return false;
    ItemId = stored.value(u"ID"_qs);
    Updated = true;
    clearEdited();
    return true;
}

// --- one screen for each table ---

frmKakakuSYU::frmKakakuSYU(QWidget* parent) : frmKakaku(parent, priceForm(u"価格種目"_qs)) {}
frmKakakuKI::frmKakakuKI(QWidget* parent) : frmKakaku(parent, priceForm(u"価格基本"_qs)) {}
frmKakakuADD::frmKakakuADD(QWidget* parent) : frmKakaku(parent, priceForm(u"価格加算"_qs)) {}
frmKakakuSEI::frmKakakuSEI(QWidget* parent) : frmKakaku(parent, priceForm(u"価格要素"_qs)) {}
frmKakakuKAN::frmKakakuKAN(QWidget* parent) : frmKakaku(parent, priceForm(u"価格部品"_qs)) {}
