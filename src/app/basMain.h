#pragma once

// Starts the program: one instance, date, logger, database, managers, menu. Every failure is reported and ends the
// start. True when the menu shows; it then keeps the program alive, and closing it ends the program by `EndProgram`.
bool Main();

// The second stage: logger, database, managers, price year. It raises what fails.
void InitializeApp();

// Closes the database, releases the managers, writes the last log line. Each step goes on whatever the last did. The
// mark of the one instance stays, as `InitializeApp` may follow.
void TerminateApp() noexcept;

// The same at the end of the program, whose mark goes.
void EndProgram() noexcept;
