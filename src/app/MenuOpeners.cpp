#include "app/MenuOpeners.h"

#include "estimates/screens/frmCsEstimate.h"

const QHash<QString, MenuOpener>& menuOpeners() {
    static const QHash<QString, MenuOpener> table{
        {u"cbCsEstimate"_qs, [](QWidget* menu) { openScreen<frmCsEstimate>(menu); }},
    };
    return table;
}
