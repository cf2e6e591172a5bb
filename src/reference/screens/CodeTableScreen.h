#pragma once

#include "reference/CodeTable.h"
#include "ui/EditedRows.h"
#include "ui/GridColumn.h"
#include "ui/Screen.h"

namespace Ui {
class CodeTableScreen;
}

class QPushButton;

// Keeps one code table: rows are edited in place, moved and marked to go, and written together by 反映. The screen and
// its grid bear the names that the table gives them.
class CodeTableScreen : public Screen {
    Q_OBJECT

public:
    CodeTableScreen(QWidget* parent, std::unique_ptr<CodeTable> table);
    ~CodeTableScreen() override;

protected:
    void load() override;
    bool queryUnload() override;

private:
    // --- rows and cells ---
    int keyColumn() const { return static_cast<int>(form().columns.size()) + 1; }
    int seqColumn() const { return keyColumn() + 1; }
    const CodeTable::Form& form() const { return m_table->form(); }
    CodeRow rowAt(int row) const;
    QStringList cellsOf(const CodeRow& row) const;
    QString flagAt(int row) const;
    QList<GridColumn> gridColumns() const;
    void showWhole();
    void fillChoices(const QList<CodeRow>& rows);
    void showCodeOf(int row, int column);
    void showRows();
    void reload(const QString& currentNumber);

    // --- sorting and moving ---
    void sortBy(int column);
    void sortBySeq();
    bool maySort();
    void showSort();
    void moveRow(const std::function<bool()>& run, int towards);
    void renumber();
    void renumberRows(const QList<int>& rows);

    // --- editing and writing ---
    void startRow(int row);
    void settleCell(int row, int column);
    bool save();
    bool writeRows();
    bool mayWrite(int row, const QString& question);
    bool check(int row);
    bool removeRow(int row);
    QStringList seqs() const;
    void saveRow(int row);
    void cancel();

    std::unique_ptr<Ui::CodeTableScreen> ui;
    std::unique_ptr<CodeTable> m_table;
    QList<QList<CodeChoice>> m_choices; // of each column
    EditedRows* m_rows = nullptr;
    QHash<QString, CodeRow> m_shown;  // as read when they were shown
    QHash<QString, CodeRow> m_stored; // as they stand when the run begins
    int m_sortColumn = -1;            // -1: by hand
    bool m_sortsUpwards = false;
};

// The screen of one of the tables.
template <auto table> class CodeTableScreenOf : public CodeTableScreen {
public:
    explicit CodeTableScreenOf(QWidget* parent = nullptr) : CodeTableScreen(parent, table()) {}
};

using frmDoctorData = CodeTableScreenOf<CodeTables::doctors>;
using frmChargeData = CodeTableScreenOf<CodeTables::producers>;
using frmClaimData = CodeTableScreenOf<CodeTables::claims>;
using frmOrderData = CodeTableScreenOf<CodeTables::orders>;
using frmIns = CodeTableScreenOf<CodeTables::laws>;
using frmInsuranceData = CodeTableScreenOf<CodeTables::lawClaims>;
using frmPrefectureData = CodeTableScreenOf<CodeTables::prefectures>;
using frmCsEquipment = CodeTableScreenOf<CodeTables::equipment>;
