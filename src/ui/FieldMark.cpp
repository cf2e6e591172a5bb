#include "ui/FieldMark.h"

#include <QComboBox>
#include <QEvent>
#include <QLineEdit>

namespace {

constexpr int air = 2;

// Where the mark stands: in the field of a list, beside its arrow.
QWidget* groundOf(QWidget* field) {
    auto* list = qobject_cast<QComboBox*>(field);
    return list && list->lineEdit() ? list->lineEdit() : field;
}

FieldMark* markOf(QWidget* field) {
    return groundOf(field)->findChild<FieldMark*>(QString(), Qt::FindDirectChildrenOnly);
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
    if (!mark) mark = new FieldMark(groundOf(field));
    mark->tell(words);
    field->setAccessibleDescription(words);
}

QString FieldMark::of(QWidget* field) {
    const FieldMark* mark = markOf(field);
    return mark ? mark->text() : QString();
}

void FieldMark::tell(const QString& words) {
    setText(words);
    setVisible(!words.isEmpty());
    place();
}

// What is typed ends before the mark.
void FieldMark::place() {
    adjustSize();
    auto* entry = qobject_cast<QLineEdit*>(field());
    const int left = entry ? entry->width() - air - width() : 2 * air;
    setGeometry(left, air, width(), field()->height() - 2 * air);
    if (entry) entry->setTextMargins(0, 0, text().isEmpty() ? 0 : width() + air, 0);
    raise();
}

bool FieldMark::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) place();
    return QLabel::eventFilter(watched, event);
}
