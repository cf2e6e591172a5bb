#pragma once

#include "ui/ListScreen.h"

namespace Ui {
class frmKakakuList;
}

class Grid;
class KeyedList;
class NarrowingBoxes;
struct PriceForm;

// The five price tables, one tab each: looked at by a filter, a user's own rows added, rows put right. After changes
// 選択ﾘｽﾄ更新 makes the choices of the make element grid anew.
class frmKakakuList : public ListScreen {
    Q_OBJECT

public:
    explicit frmKakakuList(QWidget* parent = nullptr);
    ~frmKakakuList() override;

protected:
    void load() override;
    bool queryUnload() override;

private:
    // A table of a tab with what it shows.
    struct Page {
        const PriceForm* form;
        Grid* grid;
        KeyedList* rows;
    };

    void addPage(const PriceForm& form);
    const Page& page() const;
    void turned();
    void sortBy(int column);
    void showRows();
    void open(qint16 mode);
    template <class EditForm> void openRow(qint16 mode, int row, const QString& id);
    void rebuildSelection();

    std::unique_ptr<Ui::frmKakakuList> ui;
    QList<Page> m_pages;
    NarrowingBoxes* m_boxes;
    bool m_rebuilding = false;
};
