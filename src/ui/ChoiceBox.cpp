#include "ui/ChoiceBox.h"

#include "ui/NumberField.h"
#include "ui/Style.h"
#include "ui/TextField.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStylePainter>
#include <QWheelEvent>

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

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    const bool empties = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
    if (m_mayBeEmpty && !isEditable() && empties) return clearChoice();
    QComboBox::keyPressEvent(event);
}

// Turning the wheel over a form scrolls it; a choice changes only where the operator works.
void ChoiceBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) return QComboBox::wheelEvent(event);
    event->ignore();
}
