#pragma once

#include <QList>
#include <QPointer>

class Grid;
class QWidget;

// Brings the operator back to the cells where he was once the grids of a form are filled anew: at the end of its life.
class GridPlaces {
public:
    explicit GridPlaces(const QWidget* form);
    ~GridPlaces();
    Q_DISABLE_COPY_MOVE(GridPlaces)

private:
    struct Place {
        QPointer<Grid> grid;
        int row, column;
    };
    QList<Place> m_places;
};
