#pragma once

// Starts the program: one instance, date, logger, database, managers, menu. Every failure is reported and ends the
// start. True when the menu shows; it then keeps the program alive, and closing it ends the program by `TerminateApp`.
bool Main();

// The second stage: logger, database, managers, price year. It raises what fails.
void InitializeApp();

// Closes the database, releases the managers, writes the last log line. Each step goes on whatever the last did.
void TerminateApp() noexcept;
