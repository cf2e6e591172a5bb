#pragma once

#include <QString>

class QPushButton;
class QWidget;
class TextField;

// The field of the backup folder and the button that opens the folder dialog, as both screens have them.
namespace BackupFolder {

// Shows the folder in force and lets the button choose another.
void setUp(QWidget* form, TextField* field, QPushButton* browse);
// The folder that the field means; the default one, which is made, when it is empty.
QString of(const TextField* field);
// Keeps the folder as entered for the next time; an empty field goes back to the default.
void remember(const TextField* field);

// An error with its path when the office's database is a file that is not there.
void requireDatabase();

} // namespace BackupFolder
