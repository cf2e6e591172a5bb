#pragma once

#include "db/Recordset.h"
#include "ui/SelectRows.h"

#include <QStringList>

#include <functional>
#include <optional>

class QWidget;

// Opens the estimates of a person above the selection list and gives the chosen one, or empty.
using EstDetail = std::function<QString(QWidget* parent)>;

// Shows the rows of a query in the selection list and gives the chosen row; nothing when it was cancelled or there is
// no row to choose from, which is told with the title's word unless that was done already. With `estDetail` the list
// offers 見積詳細; an estimate chosen there ends the choice with a row without fields.
enum class TellMissing { Yes, No };
std::optional<SelectedRow> SelectFrom(QWidget* parent, const QString& title, Recordset rows,
                                      const QStringList& hidden = {}, TellMissing tell = TellMissing::Yes,
                                      const EstDetail& estDetail = {});
// The same of a long table, which has a row at least.
std::optional<SelectedRow> SelectFrom(QWidget* parent, const QString& title, const LongTable& table,
                                      const QStringList& hidden, const EstDetail& estDetail);
