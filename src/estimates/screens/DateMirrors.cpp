#include "estimates/screens/DateMirrors.h"

#include "ui/DateField.h"

#include <QScopedValueRollback>

DateMirrors::DateMirrors(const QList<std::pair<DateField*, DateField*>>& pairs, QObject* parent) : QObject(parent) {
    for (const auto& [first, second] : pairs) {
        follow(first, second);
        follow(second, first);
    }
}

void DateMirrors::follow(const DateField* from, DateField* to) {
    connect(from, &DateField::valueSettled, this, [=, this] {
        const bool copied = m_copying;
        {
            const QScopedValueRollback copying(m_copying, true);
            if (to->value() != from->value()) to->setValue(from->value());
        }
        if (!copied && !from->value().isEmpty()) emit typed(from);
    });
}
