#include "price/screens/NarrowingBoxes.h"

#include "base/basMessage.h"
#include "price/PriceManagers.h"
#include "ui/ChoiceBox.h"

#include <QScopedValueRollback>

NarrowingBoxes::NarrowingBoxes(QList<ChoiceBox*> boxes, ListHead head, bool clearing, QObject* parent)
    : QObject(parent), m_boxes(std::move(boxes)), m_head(head), m_clearing(clearing) {
    for (int place = 0; place < m_boxes.size(); ++place) {
        ChoiceBox* box = m_boxes.at(place);
        if (!box->isEditable()) box->setEditable(true);
        connect(box, &ChoiceBox::valueChanged, this, [this, place] { take(place); });
    }
}

void NarrowingBoxes::setTable(PriceTable& table, const QStringList& columns) {
    m_table = &table;
    m_columns = columns;
    m_taken = QStringList(columns.size());
    const QScopedValueRollback filling(m_filling, true);
    for (ChoiceBox* box : m_boxes) box->setText(m_head.all ? allEntry : QString());
    fillFrom(0);
}

void NarrowingBoxes::fill() {
    const QScopedValueRollback filling(m_filling, true);
    fillFrom(0);
}

void NarrowingBoxes::setTexts(const QStringList& texts) {
    const QScopedValueRollback filling(m_filling, true);
    for (int place = 0; place < texts.size(); ++place) m_boxes.at(place)->setText(texts.at(place));
    fillFrom(0);
}

void NarrowingBoxes::take(int place) {
    if (m_filling || place >= m_columns.size()) return;
    const QString text = FilterText(m_boxes.at(place));
    if (text == m_taken.at(place)) return;
    m_taken[place] = text;
    guarded([this, place] {
        const QScopedValueRollback filling(m_filling, true);
        for (int behind = place + 1; m_clearing && behind < m_columns.size(); ++behind) {
            m_taken[behind].clear();
            m_boxes.at(behind)->setText(m_head.all ? allEntry : QString());
        }
        fillFrom(place + 1);
    });
    emit changed();
}

void NarrowingBoxes::fillFrom(int place) {
    for (; place < m_columns.size(); ++place) {
        ChoiceBox* box = m_boxes.at(place);
        const QString text = box->text();
        BeginList(box, m_head);
        for (const QString& value : m_table->valuesOf(m_columns.at(place), filterAhead(place)))
            if (!value.isEmpty()) AddListEntry(box, value, value);
        box->setText(text);
        m_taken[place] = FilterText(box);
    }
}

SqlTerm NarrowingBoxes::filterAhead(int place) const {
    QList<std::pair<QString, QString>> values;
    for (int i = 0; i < place; ++i)
        if (!m_taken.at(i).isEmpty()) values << std::pair(m_columns.at(i), m_taken.at(i));
    return PriceGroupFilter(values);
}
