#pragma once

#include "price/PriceTable.h"
#include "ui/EditScreen.h"

class QCheckBox;
class QGridLayout;
class QVBoxLayout;
class NarrowingBoxes;
struct PriceField;
struct PriceForm;

// Edits one row of a price table; the fields are those of the table's form. `Copy` shows the row of `ItemId` and stores
// it as a new one. Deletes nothing: a row that is no longer wanted is marked 無効.
class frmKakaku : public EditScreen {
    Q_OBJECT

public:
    // The row to show; after a save the row that was written.
    QString ItemId;

protected:
    frmKakaku(QWidget* parent, const PriceForm& form);

    void fillLists() override;
    QWidget* firstField() const override;
    void showStored() override;
    bool save() override;

private:
    void addFields(QGridLayout* grid);
    void addStamps(QGridLayout* grid);
    void addCommands(QVBoxLayout* rows);
    QWidget* controlOf(const PriceField& field) const;

    bool isNew() const { return EditMode != Edit; }
    void show(const PriceRow& row);
    PriceRow collect() const;
    QWidget* missing(const PriceRow& row) const;
    bool mayOverwrite() const;

    const PriceForm& m_form;
    PriceTable& m_table;
    PriceRow m_loaded;
    NarrowingBoxes* m_boxes = nullptr;
};

// --- one screen for each table ---

class frmKakakuSYU : public frmKakaku {
public:
    explicit frmKakakuSYU(QWidget* parent = nullptr);
};

class frmKakakuKI : public frmKakaku {
public:
    explicit frmKakakuKI(QWidget* parent = nullptr);
};

class frmKakakuADD : public frmKakaku {
public:
    explicit frmKakakuADD(QWidget* parent = nullptr);
};

class frmKakakuSEI : public frmKakaku {
public:
    explicit frmKakakuSEI(QWidget* parent = nullptr);
};

class frmKakakuKAN : public frmKakaku {
public:
    explicit frmKakakuKAN(QWidget* parent = nullptr);
};
