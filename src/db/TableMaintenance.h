#pragma once

class Connection;

// Brings an older database up to what this version of the program expects. Each step is safe to repeat; a failure
// leaves the version behind, so that the next start takes up the same work again.
void TableMaintenance(Connection& connection);
