#include "ui/SpokenNames.h"

#include "ui/Grid.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QTabWidget>

namespace {

QString wordsOf(const QLabel* label) {
    const QString text = label->text();
    if (text.endsWith(u'：')) return text.chopped(1);
    return text.startsWith(u'【') ? text.section(u'】', 0, 0).mid(1) : QString();
}

bool isField(const QWidget* widget) {
    return widget->focusPolicy() & Qt::TabFocus && !qobject_cast<const QAbstractButton*>(widget) &&
           !qobject_cast<const QTabWidget*>(widget) && !qobject_cast<const QGroupBox*>(widget) &&
           !qobject_cast<const QScrollArea*>(widget);
}

bool isWordless(const QWidget* part) {
    const auto* button = qobject_cast<const QAbstractButton*>(part);
    return button && button->text().isEmpty() && button->focusPolicy() & Qt::TabFocus;
}

// A tool tip that tells keys is no name.
QString hintOf(const QWidget* field) {
    const QString hint = field->toolTip().section(u'\n', 0, 0);
    return hint.startsWith(u"Alt+"_qs) || hint.startsWith(u"F4"_qs) ? QString() : hint;
}

// Reads a form as an operator does, row by row.
class Reader {
public:
    explicit Reader(const QString& title) : m_title(title) {}

    void read(QWidget* part) {
        if (auto* label = qobject_cast<QLabel*>(part)) return take(label);
        if (isField(part) || isWordless(part)) return name(part);
        if (auto* pages = qobject_cast<QTabWidget*>(part)) {
            for (int page = 0; page < pages->count(); ++page) Reader(pages->tabText(page)).read(pages->widget(page));
        } else if (auto* area = qobject_cast<QScrollArea*>(part)) {
            if (area->widget()) read(area->widget());
        } else if (auto* group = qobject_cast<QGroupBox*>(part)) {
            Reader(group->title().isEmpty() ? m_title : group->title()).read(group->layout());
        } else {
            Reader(m_title).read(part->layout());
        }
    }

    void read(QLayout* layout) {
        if (auto* grid = qobject_cast<QGridLayout*>(layout)) return readRows(grid);
        for (int i = 0; layout && i < layout->count(); ++i) read(layout->itemAt(i));
    }

private:
    void read(QLayoutItem* item) {
        if (item->widget()) read(item->widget());
        if (item->layout()) read(item->layout());
    }

    void readRows(QGridLayout* grid) {
        QStringList headings(grid->columnCount());
        for (int row = 0; row < grid->rowCount(); ++row)
            for (int column = 0; column < grid->columnCount(); ++column) {
                QLayoutItem* item = grid->itemAtPosition(row, column);
                if (!item || (column > 0 && grid->itemAtPosition(row, column - 1) == item) ||
                    (row > 0 && grid->itemAtPosition(row - 1, column) == item))
                    continue;
                const auto* label = qobject_cast<QLabel*>(item->widget());
                if (label && label->property("heading").toBool()) headings[column] = label->text();
                m_heading = headings.at(column).isEmpty() ? QString() : u"%1 %2"_qs.arg(headings.at(column)).arg(row);
                read(item);
                m_heading.clear();
            }
    }

    void take(QLabel* label) {
        const QString words = wordsOf(label);
        if (words.isEmpty()) return;
        m_label = label;
        m_words = words;
        m_named = 0;
    }

    void name(QWidget* field) {
        if (m_label && !m_label->buddy()) m_label->setBuddy(field);
        if (!field->accessibleName().isEmpty()) return;
        for (const QString& words : {hintOf(field), m_heading, m_words, m_title}) {
            if (words.isEmpty()) continue;
            const bool again = words == m_words && ++m_named > 1;
            return field->setAccessibleName(again ? u"%1 %2"_qs.arg(words).arg(m_named) : words);
        }
    }

    QString m_title;
    QLabel* m_label = nullptr;
    QString m_words;   // of the label
    QString m_heading; // above the field, with its row
    int m_named = 0;   // fields of the label
};

} // namespace

void SpokenNames::give(QWidget* form) { Reader(form->windowTitle()).read(form->layout()); }
