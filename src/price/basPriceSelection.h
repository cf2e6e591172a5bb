#pragma once

#include <QtGlobal>

#include <functional>

class Connection;

// Empties `基本要素選択` and fills it from the price tables, in a transaction of its own: five fixed rows for the
// wheelchairs, then the groups of `価格基本`, `価格加算` and `価格要素`. `progress` gets the rows done and the rows in
// all. Failures rise to the caller with the table as it was.
void RebuildBaseElmtSelect(Connection& connection, const std::function<void(qint64, qint64)>& progress = {});
