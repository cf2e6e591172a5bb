#include "ui/FieldMark.h"

#include <QComboBox>
#include <QEvent>
#include <QLineEdit>

namespace {

constexpr int air = 2;
constexpr int arrow = 22; // of a list

FieldMark* markOf(const QWidget* field) { return field->findChild<FieldMark*>(QString(), Qt::FindDirectChildrenOnly); }

QLineEdit* entryOf(QWidget* field) {
    if (auto* list = qobject_cast<QComboBox*>(field)) return list->lineEdit();
    return qobject_cast<QLineEdit*>(field);
}

} // namespace

FieldMark::FieldMark(QWidget* field) : QLabel(field) {
    setProperty("fieldMark", true);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    field->installEventFilter(this);
}

void FieldMark::set(QWidget* field, const QString& words) {
    FieldMark* mark = markOf(field);
    if (!mark && words.isEmpty()) return;
    if (!mark) mark = new FieldMark(field);
    mark->tell(words);
}

QString FieldMark::of(const QWidget* field) {
    const FieldMark* mark = markOf(field);
    return mark ? mark->text() : QString();
}

void FieldMark::tell(const QString& words) {
    setText(words);
    setVisible(!words.isEmpty());
    field()->setAccessibleDescription(words);
    place();
}

// What is typed ends before the mark.
void FieldMark::place() {
    adjustSize();
    QLineEdit* entry = entryOf(field());
    const int end = field()->width() - air - (qobject_cast<QComboBox*>(field()) ? arrow : 0);
    const int left = entry ? end - width() : 2 * air;
    setGeometry(left, air, width(), field()->height() - 2 * air);
    if (entry) entry->setTextMargins(0, 0, text().isEmpty() ? 0 : width() + air, 0);
    raise();
}

bool FieldMark::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) place();
    return QLabel::eventFilter(watched, event);
}
