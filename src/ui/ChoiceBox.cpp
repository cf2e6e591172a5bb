#include "ui/ChoiceBox.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "ui/NumberField.h"
#include "ui/Style.h"
#include "ui/TextField.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStylePainter>
#include <QWheelEvent>

#include <utility>

namespace {

constexpr int widestCharacters = 24;
constexpr int decimals = 4; // as amounts and percentages are stored

// The style sheet's frame has no arrow of its own.
void drawArrow(QPainter& painter, const QRect& box, const QColor& colour) {
    constexpr qreal half = 4;
    const QPointF tip(box.right() - 11, box.center().y() + half / 2);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF({tip, tip + QPointF(-half, -half), tip + QPointF(half, -half)}));
}

} // namespace

QSize ChoiceBox::sizeHint() const {
    const QSize hint = QComboBox::sizeHint();
    return {qMin(hint.width(), Style::charactersWide(widestCharacters)), hint.height()};
}

QSize ChoiceBox::minimumSizeHint() const {
    const QSize hint = QComboBox::minimumSizeHint();
    return {qMin(hint.width(), sizeHint().width()), hint.height()};
}

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(20);
    setFocusPolicy(Qt::StrongFocus);
    setPlaceholderText(u" "_qs); // with one, filling the list chooses nothing
    connect(this, &QComboBox::currentIndexChanged, this, &ChoiceBox::noteChange);
    connect(this, &QComboBox::editTextChanged, this, &ChoiceBox::noteChange);
}

void ChoiceBox::setEditable(bool editable) {
    QComboBox::setEditable(editable);
    if (editable)
        setField(new TextField(this));
    else
        m_field = nullptr;
}

void ChoiceBox::setNumeric(bool numeric) {
    m_numeric = numeric;
    QComboBox::setEditable(true);
    if (!numeric) return setField(new TextField(this));
    auto* field = new NumberField(this);
    field->setDecimals(decimals);
    setField(field);
}

void ChoiceBox::setField(EntryField* field) {
    m_field = field;
    setLineEdit(field);
    field->setAlignment(Qt::AlignLeft | Qt::AlignVCenter); // like the list below it
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setFilterMode(Qt::MatchContains);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_typed = true; });
}

void ChoiceBox::setMaxLength(int characters) { m_field->setMaxLength(characters); }

void ChoiceBox::clearEntries() {
    m_foreignText.clear();
    clear();
}

// An editable box may hold a typed text beside an older choice.
int ChoiceBox::chosenIndex() const {
    if (!isEditable() || itemText(currentIndex()) == currentText()) return currentIndex();
    return findText(text(), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

QString ChoiceBox::text() const {
    const bool isEntry = currentIndex() >= 0 && itemText(currentIndex()) == currentText();
    if (isEditable()) return isEntry ? currentText() : m_field->value();
    return currentIndex() >= 0 ? currentText() : m_foreignText;
}

void ChoiceBox::setText(const QString& text) {
    const int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    m_foreignText = index < 0 ? text : QString();
    setCurrentIndex(index);
    if (isEditable()) m_field->setValue(text);
    noteChange();
    update();
}

QString ChoiceBox::data() const { return itemData(chosenIndex()).toString(); }

bool ChoiceBox::chooseByData(const QString& data) {
    const int index = findData(data);
    setText(itemText(index));
    if (index >= 0) setCurrentIndex(index); // of several entries with one text, the one with the data
    return index >= 0;
}

void ChoiceBox::noteChange() {
    if (currentIndex() >= 0) m_foreignText.clear();
    if (text() == m_lastText && data() == m_lastData) return;
    m_lastText = text();
    m_lastData = data();
    emit valueChanged();
}

void ChoiceBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shownText();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    drawArrow(painter, rect(), palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
}

// What was typed stands for the one entry that holds it. A text that nobody has typed at stays, and a number is itself:
// 5 is not 95.
void ChoiceBox::takeOnlySuggestion() {
    const QString sought = Text::toHalfWidth(currentText());
    if (!std::exchange(m_typed, false) || sought.isEmpty() || isPlainNumber(sought)) return;
    int found = -1;
    for (int i = 0; i < count(); ++i) {
        if (itemText(i) == currentText()) return;
        if (!Text::toHalfWidth(itemText(i)).contains(sought, Qt::CaseInsensitive)) continue;
        if (found >= 0) return;
        found = i;
    }
    if (found >= 0) setCurrentIndex(found);
}

// The open suggestions would keep the key for themselves: the screen gets it once they are closed.
bool ChoiceBox::closeSuggestions(const QKeyEvent* event) {
    QAbstractItemView* offered = completer()->popup();
    if (!offered->isVisible() || offered->currentIndex().isValid()) return false;
    offered->hide();
    QCoreApplication::postEvent(this, event->clone());
    return true;
}

void ChoiceBox::focusInEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) m_typed = false;
    QComboBox::focusInEvent(event);
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEditable() && isReturn) {
        takeOnlySuggestion();
        if (closeSuggestions(event)) return;
    }
    const bool empties = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    if (m_mayBeEmpty && !isEditable() && empties) return clearChoice();
    QComboBox::keyPressEvent(event);
}

// Turning the wheel over a form scrolls it; a choice changes only where the operator works.
void ChoiceBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) return QComboBox::wheelEvent(event);
    event->ignore();
}
