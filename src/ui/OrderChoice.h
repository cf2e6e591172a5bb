#pragma once

#include <QString>

class ChoiceBox;
class QWidget;
class TextField;

// Offers the ordering parties in use whose code begins with the text of the field; code and name of the chosen one go
// into the fields.
void SelectOrder(QWidget* parent, TextField* code, TextField* name);
// The doctors in use of the ordering parties whose code begins with `code`, of all when it is empty. The name that
// stands in the list stays.
void FillDoctorsOfOrder(ChoiceBox* doctors, const QString& code);
