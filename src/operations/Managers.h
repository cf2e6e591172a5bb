#pragma once

#include <QString>

class Connection;

// All table managers of the run, in the order in which the start-up prepares them.
namespace Managers {

void prepare(Connection& connection);
// Forgets the connection, which is about to close.
void release();
// The tables in that order.
QStringList tables();

} // namespace Managers
