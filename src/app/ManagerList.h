#pragma once

#include <QString>

class Connection;

// Prepares every table manager with the open connection, in a fixed order; the first failure rises.
void PrepareManagers(Connection& connection);
// Takes the managers from the connection; they are prepared anew before their next use.
void ReleaseManagers();
// The value of setting No 20; empty when there is none.
QString ReadPriceYear();
