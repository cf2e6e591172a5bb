#include "ui/GridDelegate.h"

#include "base/basMessage.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/EntryList.h"
#include "ui/EntryValidator.h"
#include "ui/Grid.h"
#include "ui/NumberField.h"
#include "ui/Style.h"
#include "ui/TextField.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

namespace {

// What the operator's text in an editor stands for; nothing when it is no valid entry.
std::optional<QString> typedText(QWidget* editor) {
    if (const auto* list = qobject_cast<ChoiceBox*>(editor)) return list->text();
    auto* field = qobject_cast<EntryField*>(editor);
    if (!field || !field->commit()) return std::nullopt;
    return field->value();
}

constexpr int textMargin = 4;

// Into a control of the same window; another window or a list that drops down only borrows the focus.
bool leavesTheGrid(const Grid* grid) {
    const QWidget* now = QApplication::focusWidget();
    return now && now->window() == grid->window() && !grid->isAncestorOf(now) && now != grid;
}

QString noSuchEntry(const QString& text) {
    return u"「%1」に当てはまる項目が一覧にないか、複数あります。\n一覧から選んでください。"_qs.arg(text);
}

bool isStarter(int key) { return key == Qt::Key_Down || key == Qt::Key_Up; }

// A cell takes an amount as it stands, like its column in the database.
NumberField* makeNumberEditor(QWidget* parent) {
    auto* editor = new NumberField(parent);
    editor->setDecimals(4);
    return editor;
}

} // namespace

GridDelegate::GridDelegate(Grid* grid) : QStyledItemDelegate(grid), m_grid(grid) {}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (m_grid->column(index.column()).kind != GridColumn::Check) return paintText(painter, option, index);
    const bool checked = index.data(Qt::CheckStateRole) == Qt::Checked;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    QStyle* style = m_grid->style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, m_grid);
    QStyleOptionButton box;
    box.rect = style->subElementRect(QStyle::SE_CheckBoxIndicator, &box, m_grid);
    box.rect.moveCenter(option.rect.center());
    box.state = (checked ? QStyle::State_On : QStyle::State_Off) | (option.state & QStyle::State_Enabled);
    box.palette = option.palette;
    style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, m_grid);
}

// Drawn by hand: the style sheet takes several times as long, and a list has hundreds of cells in view.
void GridDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QRect cell = option.rect;
    const bool isCurrent = option.state & QStyle::State_HasFocus;
    if (isCurrent && !m_grid->isList()) {
        painter->fillRect(cell, Style::accent);
        painter->fillRect(cell.adjusted(2, 2, -2, -2), Style::focusField);
    } else if (isCurrent || (option.state & QStyle::State_Selected)) {
        painter->fillRect(cell, Style::chosen);
    } else if (const QVariant background = index.data(Qt::BackgroundRole); background.isValid()) {
        painter->fillRect(cell, background.value<QBrush>());
    }
    const QRect room = cell.adjusted(textMargin, 0, -textMargin, 0);
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    if (m_grid->aside) paintAside(painter, room, alignment, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty()) return;
    const bool isEnabled = option.state & QStyle::State_Enabled;
    painter->setPen(option.palette.color(isEnabled ? QPalette::Normal : QPalette::Disabled, QPalette::Text));
    m_grid->letters().paint(*painter, room, alignment, text);
}

void GridDelegate::paintAside(QPainter* painter, const QRect& room, Qt::Alignment alignment,
                              const QModelIndex& index) const {
    const QString word = m_grid->aside(index.row() + 1, index.column());
    if (word.isEmpty()) return;
    const QFontMetrics letters(m_grid->font());
    QRect patch(0, 0, letters.horizontalAdvance(word) + 2 * textMargin, room.height() - 4);
    patch.moveCenter(room.center());
    alignment& Qt::AlignRight ? patch.moveLeft(room.left()) : patch.moveRight(room.right());
    painter->fillRect(patch, Style::remark);
    painter->setPen(Style::remarkInk);
    m_grid->letters().paint(*painter, patch, Qt::AlignCenter, word);
}

QWidget* GridDelegate::makeListEditor(QWidget* parent, int column) const {
    auto* list = new ChoiceBox(parent);
    list->setEditable(true);
    for (const GridEntry& entry : m_grid->column(column).entries) list->addEntry(entry.listText(), entry.value);
    EntryList::dress(list, m_grid->column(column).entries);
    connect(
        list, &QComboBox::activated, this,
        [this, list] {
            auto* self = const_cast<GridDelegate*>(this);
            emit self->commitData(list);
            emit self->closeEditor(list);
        },
        Qt::QueuedConnection);
    return list;
}

QWidget* GridDelegate::makeEditor(QWidget* parent, int column) const {
    const GridColumn& form = m_grid->column(column);
    if (!form.entries.isEmpty()) return makeListEditor(parent, column);
    if (form.kind == GridColumn::Number) return makeNumberEditor(parent);
    if (form.kind == GridColumn::Date) return new DateField(parent);
    return new TextField(parent);
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    if (!m_grid->mayEdit(index)) return nullptr;
    m_grid->m_editor = makeEditor(parent, index.column());
    return m_grid->m_editor;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString value = index.data(Qt::EditRole).toString();
    if (auto* list = qobject_cast<ChoiceBox*>(editor)) {
        if (!list->chooseByData(value)) list->setText(value);
        list->lineEdit()->selectAll();
    } else if (auto* field = qobject_cast<EntryField*>(editor)) {
        field->setValue(value);
        field->selectAll();
    }
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto typed = typedText(editor);
    if (!typed) return tellLater(qobject_cast<EntryField*>(editor)->complaint());
    if (!takeSettled(index, *typed) && *typed != index.data().toString()) tellLater(noSuchEntry(*typed));
}

bool GridDelegate::takeSettled(const QModelIndex& index, const QString& text) const {
    auto value = m_grid->m_model->valueOfText(index.column(), text);
    if (!value) return false;
    int end = static_cast<int>(value->size());
    cutBeforeCursor(*value, end, m_grid->column(index.column()).maxLength);
    m_grid->takeEdit(index, *value);
    return true;
}

// By way of the field that the operator would type into.
bool GridDelegate::takeText(const QModelIndex& index, const QString& text) const {
    const std::unique_ptr<QWidget> editor(makeEditor(nullptr, index.column()));
    if (auto* list = qobject_cast<ChoiceBox*>(editor.get()))
        list->setEditText(text);
    else
        qobject_cast<EntryField*>(editor.get())->setText(text);
    const auto typed = typedText(editor.get());
    const bool isLost = typed && typed->isEmpty() && !text.trimmed().isEmpty(); // none of its signs may stand there
    return typed && !isLost && takeSettled(index, *typed);
}

// The edit is being left for another place: the cell keeps what it held, and the operator is told why.
void GridDelegate::tellLater(const QString& complaint) const {
    QMetaObject::invokeMethod(
        m_grid, [complaint] { ShowMessage(Message::Warning, complaint); }, Qt::QueuedConnection);
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

bool GridDelegate::isEntry(const QString& text) const {
    const QModelIndex cell = m_grid->currentIndex();
    return text == cell.data().toString() || m_grid->m_model->valueOfText(cell.column(), text);
}

QString GridDelegate::complaintOf(QWidget* editor) const {
    if (auto* field = qobject_cast<EntryField*>(editor)) return field->commit() ? QString() : field->complaint();
    const auto* list = qobject_cast<ChoiceBox*>(editor);
    return !list || isEntry(list->text()) ? QString() : noSuchEntry(list->text());
}

bool GridDelegate::mayLeave(QWidget* editor) const {
    const QString complaint = complaintOf(editor);
    if (complaint.isEmpty()) return true;
    ShowMessage(Message::Warning, complaint);
    editor->setFocus(Qt::OtherFocusReason);
    if (auto* list = qobject_cast<ChoiceBox*>(editor))
        list->lineEdit()->selectAll();
    else
        qobject_cast<EntryField*>(editor)->selectAll();
    return false;
}

void GridDelegate::leaveTowardsNext(QWidget* editor) {
    if (!mayLeave(editor)) return;
    emit commitData(editor);
    emit closeEditor(editor);
    m_grid->setFocus();
    if (m_grid->goToNextCell()) return;
    QKeyEvent behind(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier); // which the screen takes
    QCoreApplication::sendEvent(m_grid, &behind);
}

// The editor stays open over a wrong text, like a field.
void GridDelegate::complainUnlessExcused(QWidget* editor) {
    const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
    if (!button || !button->property("leavesUnchecked").toBool()) mayLeave(editor);
}

bool GridDelegate::eventFilter(QObject* object, QEvent* event) {
    auto* editor = qobject_cast<QWidget*>(object);
    if (editor && event->type() == QEvent::FocusOut && leavesTheGrid(m_grid) && !complaintOf(editor).isEmpty()) {
        QMetaObject::invokeMethod(
            editor, [this, editor] { complainUnlessExcused(editor); }, Qt::QueuedConnection);
        return true;
    }
    if (!editor || event->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(object, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        leaveTowardsNext(editor);
        return true;
    default:
        break;
    }
    if (auto* list = qobject_cast<ChoiceBox*>(editor);
        list && isStarter(key->key()) && key->modifiers() == Qt::AltModifier) {
        list->showPopup();
        return true;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}
