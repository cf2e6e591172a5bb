#pragma once

#include <QList>
#include <QObject>

#include <utility>

class DateField;

// Dates that stand at two places of a screen: what is entered at one appears at the other.
class DateMirrors : public QObject {
    Q_OBJECT

public:
    DateMirrors(const QList<std::pair<DateField*, DateField*>>& pairs, QObject* parent);

signals:
    // A date was entered here, not copied from its other place.
    void typed(const DateField* field);

private:
    void follow(const DateField* from, DateField* to);

    bool m_copying = false;
};
