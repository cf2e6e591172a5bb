#pragma once

#include <QObject>
#include <QStringList>

class Grid;

// The insurance laws (法別) of a customer in a grid of four rows. A retired law that is in use still shows; laws beyond
// the fourth row are kept as they are.
class LawGrid : public QObject {
    Q_OBJECT

public:
    enum Column { InsNo, InsNm };

    explicit LawGrid(Grid* grid);

    // Shows laws by their numbers.
    void show(const QStringList& laws);
    // The numbers of all laws, each once, in the order of the rows.
    QStringList laws() const;
    // How many laws have no row.
    qsizetype beyond() const { return m_beyond.size(); }

signals:
    void changed();

private:
    void offer(const QStringList& inUse);

    Grid* m_grid;
    QStringList m_beyond;
};
