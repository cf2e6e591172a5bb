#pragma once

#include <QObject>

#include <memory>
#include <vector>

class ChoiceBox;
class DateField;
class NumberField;

// Remembers whether an input control changed since the flag was last cleared, be it by the operator or by the program.
class InputWrapper : public QObject {
public:
    bool Edited() const { return m_edited; }
    void setEdited(bool edited) { m_edited = edited; }

protected:
    // Binds the control: its `valueChanged` and its key presses set the flag, its tag says so.
    template <class Control> void attach(Control* control);

private:
    bool m_edited = false;
};

// A text of one line or several.
class clsCtlImText : public InputWrapper {
public:
    void Attach(QWidget* control);
};

class clsCtlComboBox : public InputWrapper {
public:
    void Attach(ChoiceBox* control);
};

class clsCtlImDate : public InputWrapper {
public:
    void Attach(DateField* control);
};

class clsCtlImNumber : public InputWrapper {
public:
    void Attach(NumberField* control);
};

using InputWrappers = std::vector<std::unique_ptr<InputWrapper>>;
