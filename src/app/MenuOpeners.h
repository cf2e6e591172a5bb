#pragma once

#include <QHash>
#include <QString>

#include <functional>

class QWidget;

// What the buttons of the main menu do, by the buttons' names. A button that is not in the table is shown disabled.
using MenuOpener = std::function<void(QWidget* menu)>;
const QHash<QString, MenuOpener>& menuOpeners();

// Opens a stored estimate, as the list of the last ones does.
void openEstimate(QWidget* menu, const QString& EstId);
