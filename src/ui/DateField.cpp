#include "ui/DateField.h"

#include "base/Dates.h"
#include "base/Seams.h"
#include "base/basMessage.h"
#include "ui/Style.h"
#include "ui/frmCalendar.h"

#include <QAction>
#include <QKeyEvent>

DateField::DateField(QWidget* parent) : EntryField(parent) {
    setInputMethodHints(Qt::ImhPreferLatin | Qt::ImhDate);
    const QAction* calendar = addAction(Style::calendarIcon(), TrailingPosition);
    connect(calendar, &QAction::triggered, this, &DateField::openCalendar);
    setToolTip(u"例：2005/3/1　20050301　R6.4.1　h170301　（F4 でカレンダー）"_qs);
}

std::optional<QString> DateField::settled(const QString& typed) const {
    if (typed.trimmed().isEmpty()) return QString();
    const auto date = parseTypedDate(typed);
    return date ? std::optional(dateText(*date)) : std::nullopt;
}

// A stored date, or what stands in its place, goes back as it came; a spoken one does not.
QString DateField::valueOfSet(const QString& value) const {
    return parseDate(value) ? value : settled(value).value_or(value);
}

QString DateField::complaint() const {
    return u"日付が正しくありません。\n\n入力例：2005/3/1　20050301　R6.4.1　h170301"_qs;
}

void DateField::openCalendar() {
    if (isReadOnly() || !isEnabled()) return;
    guarded([this] {
        openScreen<frmCalendar>(
            window(),
            [this](frmCalendar& calendar) {
                const auto date = parseDate(value());
                calendar.SetDate = date ? date->date() : currentDate();
            },
            [this](frmCalendar& calendar) {
                if (calendar.Selected) setValue(dateText(calendar.GetDate));
            });
    });
}

void DateField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier) return openCalendar();
    EntryField::keyPressEvent(event);
}

QSize DateField::sizeHint() const { return {Style::charactersWide(14), EntryField::sizeHint().height()}; }
