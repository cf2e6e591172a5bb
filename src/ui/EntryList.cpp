#include "ui/EntryList.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "ui/ChoiceBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>

#include <numeric>

namespace {

constexpr int gap = 16;   // between columns
constexpr int margin = 6; // ahead of the first and behind the last
constexpr int air = 8;    // above and below, as in the rows of a grid

QStringList partsOf(const GridEntry& entry) {
    return entry.detail.isEmpty() ? QStringList(entry.shown) : QStringList(entry.shown) + entry.detail.split(u'／');
}

// By half-width signs, which a list of thousands is quickly counted in.
int widthOf(const QString& text, int sign) { return Text::cp932Length(text) * sign; }

bool isNumber(const QString& text) { return isPlainNumber(QString(text).remove(u',')); }

void widen(QAbstractItemView* view, int width) {
    const int room = view->screen()->availableSize().width();
    view->setMinimumWidth(qMin(width + view->verticalScrollBar()->sizeHint().width() + 2 * margin, room));
}

} // namespace

EntryList::EntryList(const GridEntries& entries, QObject* parent) : QStyledItemDelegate(parent) {
    const int sign = QFontMetrics(QApplication::font()).horizontalAdvance(u'0');
    for (const GridEntry& entry : entries) {
        const QStringList parts = partsOf(entry);
        m_parts.insert(entry.listText(), parts);
        if (m_widths.size() < parts.size()) m_widths.resize(parts.size());
        for (int i = 0; i < parts.size(); ++i) m_widths[i] = qMax(m_widths.at(i), widthOf(parts.at(i), sign));
    }
}

void EntryList::dress(ChoiceBox* box, const GridEntries& entries) {
    auto* look = new EntryList(entries, box);
    for (QAbstractItemView* view : {box->view(), box->completer()->popup()}) {
        view->setItemDelegate(look);
        widen(view, look->width());
    }
}

int EntryList::width() const {
    const int columns = static_cast<int>(m_widths.size());
    return std::accumulate(m_widths.begin(), m_widths.end(), 2 * margin + qMax(0, columns - 1) * gap);
}

void EntryList::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QString text = index.data().toString();
    const bool chosen = option.state & QStyle::State_Selected;
    painter->fillRect(option.rect, chosen ? Style::accent : Style::field);
    painter->setPen(chosen ? Style::field : Style::ink);
    QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    const QStringList parts = m_parts.value(text, QStringList(text));
    for (int i = 0; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        if (!isLast || isNumber(parts.at(i))) room.setWidth(m_widths.value(i));
        const auto side = i > 0 && isNumber(parts.at(i)) ? Qt::AlignRight : Qt::AlignLeft;
        painter->drawText(room, side | Qt::AlignVCenter, parts.at(i));
        room.moveLeft(room.left() + m_widths.value(i) + gap);
        room.setRight(option.rect.right() - margin);
    }
}

QSize EntryList::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {width(), QFontMetrics(QApplication::font()).height() + air};
}
