#pragma once

#include "reference/ReferenceManager.h"

#include <functional>
#include <memory>

// A row of another table to choose for a column.
struct CodeChoice {
    QString number, name, code;
    bool retired = false;
};

// A column of a code table as it is kept by hand.
struct CodeColumn {
    enum Kind {
        Plain,
        Code,   // letters of half width
        Choice, // the number of a row of another table
        Flag,   // 有効Flg
        Shown,  // follows from other columns
    };

    QString title;
    int width = 10; // half-width characters
    Kind kind = Plain;
    SqlTerm sort = {};                               // empty: the list is not sorted by it
    std::function<QList<CodeChoice>()> choices = {}; // of a Choice
    int codeOf = -1;                                 // of a Shown column: the Choice whose code it shows
    int limit = 0;                                   // characters that the table keeps; 0: any
};

// A row: its number (empty until it is stored), its order text, and a value for each column.
struct CodeRow {
    QString number, seq;
    QStringList values;

    bool operator==(const CodeRow&) const = default;
};

// One of the small tables that are kept by hand: what its rows show, what is wrong with one, and how it is written. No
// window; the managers of the tables do the work, and what they raise rises.
class CodeTable {
public:
    struct Form {
        QString screen, grid; // the names of the screen and of its grid
        QString caption;      // its word in questions
        SqlTerm bySeq;        // the order by hand, which the list begins with
        QList<CodeColumn> columns;
        QList<int> identity;  // the columns that tell a row from every other
        QString identityWord; // what they are called
        bool needsAll = true; // of them; else one will do
        // Tables that name a row by its number alone, as "table.column": a row in use there has to stay.
        QStringList usedIn = {};
    };

    virtual ~CodeTable() = default;
    const Form& form() const { return m_form; }

    virtual QList<CodeRow> rows(const SqlTerm& sort, Direction direction) = 0;
    // Writes a row; a new one gets its number and its place in the order. Raises an error when another machine has
    // stored what tells rows apart meanwhile.
    virtual void save(CodeRow& row) = 0;
    // Writes the row's place in the order alone.
    virtual void place(const CodeRow& row) = 0;
    virtual void remove(const CodeRow& row) = 0;
    virtual bool isInUse(const CodeRow& row) = 0;

    // What a row cannot be stored for, in the operator's words; empty when nothing. `others` will stand beside it.
    QString complaintOf(const CodeRow& row, const QList<CodeRow>& others) const;
    // The column of 有効Flg, -1 without one.
    int flagColumn() const;

protected:
    explicit CodeTable(Form form) : m_form(std::move(form)) {}
    void setLimit(int column, int limit) { m_form.columns[column].limit = limit; }
    // That one of the others cannot be told from the row; empty when all can.
    QString doubleOf(const CodeRow& row, const QList<CodeRow>& others) const;

private:
    QStringList identityOf(const CodeRow& row) const;
    bool lacksIdentity(const CodeRow& row) const;

    Form m_form;
};

// The order texts of rows that stand in this order, the newest first: those that the rows have, put in order and made
// distinct; a row without one gets a low one.
QStringList orderedSeqs(QStringList seqs);

// The order text of a row that is newer than these: the time, or just behind the newest of them.
QString newestSeq(const QStringList& seqs);

// The tables.
namespace CodeTables {
std::unique_ptr<CodeTable> doctors();
std::unique_ptr<CodeTable> producers();
std::unique_ptr<CodeTable> claims();
std::unique_ptr<CodeTable> orders();
std::unique_ptr<CodeTable> laws();
std::unique_ptr<CodeTable> lawClaims();
std::unique_ptr<CodeTable> prefectures();
std::unique_ptr<CodeTable> equipment();
} // namespace CodeTables
