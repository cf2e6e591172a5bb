#include "ui/GridPlaces.h"

#include "ui/Grid.h"

GridPlaces::GridPlaces(const QWidget* form) {
    for (Grid* grid : form->findChildren<Grid*>())
        if (grid->currentRow() > 0) m_places << Place{grid, grid->currentRow(), grid->currentColumn()};
}

GridPlaces::~GridPlaces() {
    for (const Place& place : m_places)
        if (place.grid && place.row <= place.grid->rows()) place.grid->setCurrent(place.row, place.column);
}
