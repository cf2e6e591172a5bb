#include "reference/screens/CodeTableScreen.h"

#include "base/Text.h"
#include "base/basMessage.h"
#include "ui/Grid.h"
#include "ui_CodeTableScreen.h"

namespace {

constexpr int markColumn = 0;
constexpr int firstValue = 1;
constexpr int widest = 1240; // pixels of the screen
constexpr int frame = 60;    // around the columns

// The two values of 有効Flg, and what they mean in the open list.
const GridEntries flags{{u"0"_qs, u"0"_qs, u"使用中"_qs}, {u"1"_qs, u"1"_qs, u"廃止"_qs}};

GridColumn gridColumn(const CodeColumn& column) {
    GridColumn shown = GridColumn::of(column.title, column.width);
    if (column.kind == CodeColumn::Shown) return shown.grey();
    if (column.kind == CodeColumn::Flag) shown.entries = flags;
    return shown.typed();
}

} // namespace

CodeTableScreen::CodeTableScreen(QWidget* parent, std::unique_ptr<CodeTable> table)
    : Screen(parent), ui(std::make_unique<Ui::CodeTableScreen>()), m_table(std::move(table)) {
    ui->setupUi(this);
    setObjectName(form().screen);
    setWindowTitle(form().caption);
    ui->flxData->setObjectName(form().grid);
    ui->flxData->setColumns(gridColumns());
    showWhole();
    ui->lblFlag->setVisible(m_table->flagColumn() >= 0);
    m_rows = new EditedRows(ui->flxData, markColumn, keyColumn());
    m_rows->startRow = [this](int row) { startRow(row); };
    m_rows->editRefused = [] {
        ShowMessage(Message::Warning, u"削除されるデータのため編集することはできません。\n"
                                      u"もう一度「削除」を押すと、削除を取りやめます。"_qs);
    };
    m_rows->mayMove = [this](int row, int other) { return flagAt(row) == flagAt(other); };
    connect(m_rows, &EditedRows::moved, this, [this] { renumber(); });
    connect(ui->flxData, &Grid::cellEdited, this, [this](int row, int column) { settleCell(row, column); });
    connect(ui->flxData, &Grid::headingClicked, this, [this](int column) { guarded([&] { sortBy(column); }); });
    onClick(ui->cbExec, [this] { save(); });
    onClick(ui->cbEsc, [this] { cancel(); });
    onClick(ui->cbDel, [this] {
        if (leaveField()) m_rows->removeCurrent();
    });
    onClick(ui->cmdUpDown_0, [this] { moveRow([this] { return m_rows->moveCurrent(-1); }, -1); });
    onClick(ui->cmdUpDown_1, [this] { moveRow([this] { return m_rows->moveCurrent(1); }, 1); });
    onClick(ui->cmdBottom, [this] { moveRow([this] { return m_rows->moveCurrentToEnd(); }, 1); });
    onClick(ui->cmdSort, [this] { sortBySeq(); });
    onClick(ui->cbClose, [this] { close(); });
}

CodeTableScreen::~CodeTableScreen() = default;

void CodeTableScreen::load() {
    showRows();
    ui->flxData->setFocus();
}

// --- rows and cells ---

// As wide as its columns, as far as the display of an office allows.
void CodeTableScreen::showWhole() {
    int columns = frame;
    for (int column = 0; column < keyColumn(); ++column) columns += ui->flxData->columnWidth(column);
    resize(qBound(width(), columns, widest), height());
}

QList<GridColumn> CodeTableScreen::gridColumns() const {
    QList<GridColumn> columns{GridColumn::of({}, 2).aligned(Qt::AlignHCenter)};
    for (const CodeColumn& column : form().columns) columns << gridColumn(column);
    return columns << GridColumn::of({}, 0).unseen() << GridColumn::of({}, 0).unseen();
}

CodeRow CodeTableScreen::rowAt(int row) const {
    const Grid* grid = ui->flxData;
    return {grid->value(row, keyColumn()), grid->value(row, seqColumn()),
            grid->rowValues(row).mid(firstValue, form().columns.size())};
}

QStringList CodeTableScreen::cellsOf(const CodeRow& row) const {
    return QStringList{QString()} + row.values + QStringList{row.number, row.seq};
}

QString CodeTableScreen::flagAt(int row) const {
    const int flag = m_table->flagColumn();
    return flag < 0 ? QString() : ui->flxData->value(row, firstValue + flag);
}

// What is in use today, and what the rows have already.
void CodeTableScreen::fillChoices(const QList<CodeRow>& rows) {
    m_choices.clear();
    for (int i = 0; i < form().columns.size(); ++i) {
        const CodeColumn& column = form().columns.at(i);
        m_choices << (column.choices ? column.choices() : QList<CodeChoice>());
        if (!column.choices) continue;
        QSet<QString> used;
        for (const CodeRow& row : rows) used << row.values.at(i);
        GridEntries entries;
        for (const CodeChoice& choice : m_choices.last())
            if (!choice.retired || used.contains(choice.number))
                entries << GridEntry{choice.number, choice.name, choice.code};
        ui->flxData->setEntries(firstValue + i, entries);
    }
}

void CodeTableScreen::showRows() {
    const SqlTerm sort = m_sortColumn < 0 ? form().bySeq : form().columns.at(m_sortColumn).sort;
    const QList<CodeRow> rows = m_table->rows(sort, m_sortsUpwards ? Direction::Ascending : Direction::Descending);
    fillChoices(rows);
    m_shown.clear();
    QList<QStringList> cells;
    for (const CodeRow& row : rows) {
        m_shown.insert(row.number, row);
        cells << cellsOf(row);
    }
    m_rows->load(cells);
    showSort();
}

void CodeTableScreen::reload(const QString& currentNumber) {
    showRows();
    for (int row = 1; row <= m_rows->count(); ++row)
        if (!currentNumber.isEmpty() && rowAt(row).number == currentNumber) return ui->flxData->setCurrent(row);
}

// --- sorting and moving ---

bool CodeTableScreen::maySort() {
    if (!leaveField()) return false;
    if (!m_rows->hasEdits()) return true;
    ShowMessage(Message::Warning, u"データが編集されているためソートすることはできません。\n"
                                  u"反映またはキャンセルしてから、もう一度実行してください。"_qs);
    return false;
}

void CodeTableScreen::sortBy(int column) {
    const int value = column - firstValue;
    if (value < 0 || value >= form().columns.size() || form().columns.at(value).sort.isEmpty() || !maySort()) return;
    m_sortsUpwards = value != m_sortColumn || !m_sortsUpwards;
    m_sortColumn = value;
    showRows();
}

void CodeTableScreen::sortBySeq() {
    if (!maySort()) return;
    m_sortColumn = -1;
    m_sortsUpwards = false;
    showRows();
}

void CodeTableScreen::showSort() {
    const bool byHand = m_sortColumn < 0;
    ui->cmdSort->setText(byHand ? u"表示順▼"_qs : u"表示順"_qs);
    ui->cmdSort->setShortcut(QKeySequence(u"Alt+S"_qs)); // which a new text takes away
    ui->flxData->setSortMark(byHand ? -1 : m_sortColumn + firstValue, m_sortsUpwards);
}

void CodeTableScreen::moveRow(const std::function<bool()>& run, int towards) {
    if (!leaveField()) return;
    if (m_sortColumn >= 0) {
        ShowMessage(Message::Warning, u"行の移動は、表示順に並べてから行ってください。"_qs);
        return;
    }
    const int row = ui->flxData->currentRow();
    const int other = row + towards;
    const bool hasNeighbour = row >= 1 && row <= m_rows->count() && other >= 1 && other <= m_rows->count();
    if (!run() && hasNeighbour) ShowMessage(Message::Warning, u"使用中の行と廃止の行を入れ替えることはできません。"_qs);
}

// Rows in use and retired ones are two lists, the one behind the other. A new row that was not moved goes to the
// beginning, as the newest.
void CodeTableScreen::renumber() {
    QMap<QString, QList<int>> groups;
    for (int row = 1; row <= m_rows->count(); ++row)
        if (!m_rows->isNew(row) || m_rows->isMoved(row)) groups[flagAt(row)] << row;
    for (const QList<int>& rows : groups) renumberRows(rows);
}

void CodeTableScreen::renumberRows(const QList<int>& rows) {
    QStringList seqs;
    for (const int row : rows) seqs << ui->flxData->value(row, seqColumn());
    const QStringList ordered = orderedSeqs(seqs);
    for (int i = 0; i < rows.size(); ++i) {
        if (ordered.at(i) == seqs.at(i)) continue;
        ui->flxData->setValue(rows.at(i), seqColumn(), ordered.at(i));
        m_rows->noteMoved(rows.at(i));
    }
}

// --- editing ---

void CodeTableScreen::startRow(int row) {
    const int flag = m_table->flagColumn();
    if (flag >= 0 && flagAt(row).isEmpty()) ui->flxData->setValue(row, firstValue + flag, u"0"_qs);
}

void CodeTableScreen::settleCell(int row, int column) {
    const int value = column - firstValue;
    const QString typed = ui->flxData->value(row, column);
    if (form().columns.at(value).kind == CodeColumn::Code)
        ui->flxData->setValue(row, column, Text::toNarrowLetters(typed));
    if (value == m_table->flagColumn()) startRow(row);
    showCodeOf(row, value);
}

void CodeTableScreen::showCodeOf(int row, int column) {
    for (int i = 0; i < form().columns.size(); ++i) {
        if (form().columns.at(i).codeOf != column) continue;
        const QString number = ui->flxData->value(row, firstValue + column);
        QString code;
        for (const CodeChoice& choice : m_choices.at(column))
            if (choice.number == number) code = choice.code;
        ui->flxData->setValue(row, firstValue + i, code);
    }
}

void CodeTableScreen::cancel() {
    ui->flxData->giveUpEdit();
    if (m_rows->hasEdits() && ShowMessage(Message::AskCancel, form().caption) == AnswerYes)
        reload(rowAt(ui->flxData->currentRow()).number);
}

// --- writing ---

// What another machine did to the row since it was shown.
bool CodeTableScreen::mayWrite(int row, const QString& question) {
    const QString number = rowAt(row).number;
    if (number.isEmpty() || !m_stored.contains(number) || m_stored.value(number) == m_shown.value(number)) return true;
    return ShowMessage(Message::QuestionNo, u"他の端末で更新されています。%1"_qs.arg(question)) == AnswerYes;
}

bool CodeTableScreen::check(int row) {
    const CodeRow edited = rowAt(row);
    QHash<QString, CodeRow> elsewhere = m_stored; // rows that another machine has added
    QList<CodeRow> others;
    for (int other = 1; other <= m_rows->count(); ++other) {
        elsewhere.remove(rowAt(other).number);
        if (other != row && !m_rows->isRemoved(other)) others << rowAt(other);
    }
    QString complaint = m_table->complaintOf(edited, others + elsewhere.values());
    if (!edited.number.isEmpty() && !m_stored.contains(edited.number))
        complaint = u"このデータは他の端末で削除されています。\n必要なときは、新しい行に入力してください。"_qs;
    if (!complaint.isEmpty()) ShowMessage(Message::Warning, complaint);
    return complaint.isEmpty() && mayWrite(row, u"上書きしますか？"_qs);
}

QStringList CodeTableScreen::seqs() const {
    QStringList seqs;
    for (int row = 1; row <= m_rows->count(); ++row) seqs << ui->flxData->value(row, seqColumn());
    return seqs;
}

void CodeTableScreen::saveRow(int row) {
    CodeRow written = rowAt(row);
    if (written.seq.isEmpty()) written.seq = newestSeq(seqs());
    m_table->save(written);
    ui->flxData->setRowValues(row, cellsOf(written).mid(firstValue), firstValue);
    m_shown.insert(written.number, written);
    m_stored.insert(written.number, written);
}

bool CodeTableScreen::removeRow(int row) {
    const CodeRow removed = rowAt(row);
    if (m_table->isInUse(removed)) {
        ShowMessage(Message::Warning, u"使われているため削除できません。\n"
                                      u"有効Flg を 1（廃止）にすると、選ぶ一覧に出なくなります。"_qs);
        return false;
    }
    if (!mayWrite(row, u"削除しますか？"_qs)) return false;
    m_table->remove(removed);
    m_stored.remove(removed.number);
    return true;
}

bool CodeTableScreen::writeRows() {
    m_stored.clear();
    for (const CodeRow& row : m_table->rows(form().bySeq, Direction::Descending)) m_stored.insert(row.number, row);
    return m_rows->write({[this](int row) { return check(row); }, [this](int row) { saveRow(row); },
                          [this](int row) { return removeRow(row); }, [this](int row) { m_table->place(rowAt(row)); }});
}

bool CodeTableScreen::save() {
    if (!leaveField()) return false;
    const int row = ui->flxData->currentRow();
    if (!writeRows()) return false;
    reload(row > 0 && row <= m_rows->count() ? rowAt(row).number : QString());
    return true;
}

bool CodeTableScreen::queryUnload() {
    if (!Loaded || !m_rows->hasEdits()) return true;
    switch (ShowMessage(Message::AskSave, form().caption)) {
    case AnswerYes:
        return save();
    case AnswerNo:
        return true;
    default:
        return false;
    }
}
