#include "ui/KeyedList.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "ui/Grid.h"

#include <QLabel>
#include <QScrollBar>

namespace {

constexpr int rowsPerBlock = 20; // about what a screen shows
constexpr int blocksKept = 10;
constexpr int unseenWait = 30; // milliseconds, in which nobody sees an empty page
constexpr int keyWait = 1000;  // milliseconds, after which an operator presses the key again

} // namespace

KeyedList::KeyedList(Grid* grid, QLabel* count, ConnectionSettings settings, Fetch fetch)
    : QObject(grid), m_grid(grid), m_count(count), m_reader(std::move(settings)), m_fetch(std::move(fetch)),
      m_blocks(blocksKept) {
    connect(&m_reader, &KeyReader::begun, this, &KeyedList::takeFirst);
    connect(&m_reader, &KeyReader::grown, this, &KeyedList::takeMore);
    connect(&m_reader, &KeyReader::failed, this, &KeyedList::tellFailure);
    showCount();
}

void KeyedList::show(const QString& statement) {
    WriteSqlLog(statement);
    m_awaits = true;
    m_grid->setFilling(true);
    m_reader.read(statement);
    // What the screen still has to do is done meanwhile; it is not painted before.
    QMetaObject::invokeMethod(this, &KeyedList::awaitUnseen, Qt::QueuedConnection);
}

void KeyedList::awaitUnseen() {
    if (m_awaits) m_reader.awaitFirst(unseenWait);
    if (m_awaits) hideOld();
}

bool KeyedList::awaitRows() {
    if (m_awaits) m_reader.awaitFirst(keyWait);
    return m_grid->rows() > 0;
}

void KeyedList::hideOld() {
    if (m_grid->rows() > 0) m_old.row = m_grid->currentRow();
    m_grid->setRows(0);
    showCount();
}

void KeyedList::showOld() {
    m_awaits = false;
    m_grid->setSortMark(m_old.sortColumn, m_old.sortsUpwards);
    if (m_grid->rows() > 0) return; // not hidden yet
    showRead();
    m_grid->setCurrent(m_old.row);
}

void KeyedList::showRead() {
    m_grid->setSource(m_reader.count(), [this](int place) { return cells(place); });
}

void KeyedList::takeFirst() {
    m_awaits = false;
    m_blocks.clear();
    showRead();
    m_grid->setCurrent(1);
    m_old = {1, m_grid->sortColumn(), m_grid->sortsUpwards()};
    m_grid->setFilling(m_reader.isReading());
    showCount();
    emit shown();
}

void KeyedList::takeMore() {
    m_grid->growSource(m_reader.count());
    m_grid->setFilling(m_reader.isReading());
    showCount();
}

void KeyedList::tellFailure(const AppError& error) {
    m_grid->setFilling(false);
    if (m_awaits) showOld();
    showCount();
    guarded([&error] { throw error; });
}

void KeyedList::showCount() {
    m_count->setText(formatThousands(m_grid->rows()) + (m_grid->isFilling() ? u"件…"_qs : u"件"_qs));
}

bool KeyedList::isEmpty() const { return m_grid->rows() == 0 && !m_grid->isFilling(); }

QStringList KeyedList::cells(int place) {
    const int block = place / rowsPerBlock;
    if (!m_blocks.contains(block)) {
        auto* rows = new QList<QStringList>;
        try {
            *rows = fetchBlock(block);
        } catch (const AppError& error) { // told later: the grid is being painted
            QMetaObject::invokeMethod(
                this, [error] { guarded([&error] { throw error; }); }, Qt::QueuedConnection);
        }
        m_blocks.insert(block, rows);
    }
    return m_blocks.object(block)->value(place % rowsPerBlock);
}

QList<QStringList> KeyedList::fetchBlock(int block) {
    QStringList keys;
    const int end = qMin((block + 1) * rowsPerBlock, m_reader.count());
    for (int place = block * rowsPerBlock; place < end; ++place) keys << m_reader.key(place);
    const QHash<QString, QStringList> found = m_fetch(keys);
    QList<QStringList> rows;
    for (const QString& key : keys) rows << found.value(key);
    return rows;
}

void KeyedList::refetch() {
    const int row = m_grid->currentRow(), column = m_grid->currentColumn();
    const int top = m_grid->verticalScrollBar()->value();
    m_blocks.clear();
    showRead();
    m_grid->setCurrent(row, column);
    m_grid->verticalScrollBar()->setValue(top);
}

void KeyedList::refresh(int row, const QString& key) {
    const QHash<QString, QStringList> found = m_fetch({key});
    if (!found.contains(key)) return remove(row);
    m_grid->setRowValues(row, found.value(key));
}

void KeyedList::tellGone(int row, const QString& what) {
    ShowMessage(Message::NotFound, what);
    remove(row);
}

void KeyedList::remove(int row) {
    m_grid->removeRow(row);
    showCount();
}

void KeyedList::append(const QString& key) {
    const QHash<QString, QStringList> found = m_fetch({key});
    if (!found.contains(key)) return;
    m_grid->addRow(found.value(key));
    m_grid->setCurrent(m_grid->rows());
    showCount();
}
