#pragma once

#include <QStyledItemDelegate>

class Grid;

// Edits and paints the cells of a grid: a list, a number, a date or a text field, and centred tick boxes. Return and
// Tab leave an edit towards the next cell to fill; Escape gives it up.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit GridDelegate(Grid* grid);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

    // Takes a text into a cell as if it had been typed there; false when it is no valid entry.
    bool takeText(const QModelIndex& index, const QString& text) const;
    // Whether what stands in an editor can be taken; if not, it is told and the editor has the focus.
    bool mayLeave(QWidget* editor) const;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

private:
    void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintAside(QPainter* painter, const QRect& room, Qt::Alignment alignment, const QModelIndex& index) const;
    QWidget* makeEditor(QWidget* parent, int column) const;
    QWidget* makeListEditor(QWidget* parent, int column) const;
    bool takeSettled(const QModelIndex& index, const QString& text) const;
    void tellLater(const QString& complaint) const;
    bool isEntry(const QString& text) const;
    QString complaintOf(QWidget* editor) const;
    void complainUnlessExcused(QWidget* editor);
    void leaveTowardsNext(QWidget* editor);

    Grid* m_grid;
};
