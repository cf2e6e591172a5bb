#include "app/MenuOpeners.h"

const QHash<QString, MenuOpener>& menuOpeners() {
    static const QHash<QString, MenuOpener> table{};
    return table;
}
