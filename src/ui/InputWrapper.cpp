#include "ui/InputWrapper.h"

#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/MemoField.h"
#include "ui/NumberField.h"

template <class Control> void InputWrapper::attach(Control* control) {
    connect(control, &Control::valueChanged, this, [this] { m_edited = true; });
    if constexpr (std::is_base_of_v<QLineEdit, Control>) // a date half typed is a change, too
        connect(control, &QLineEdit::textEdited, this, [this] { m_edited = true; });
    control->setProperty("tag", u"Attached"_qs);
}

void clsCtlImText::Attach(QWidget* control) {
    if (auto* memo = qobject_cast<MemoField*>(control)) return attach(memo);
    if (auto* field = qobject_cast<EntryField*>(control)) attach(field);
}

void clsCtlComboBox::Attach(ChoiceBox* control) { attach(control); }

void clsCtlImDate::Attach(DateField* control) { attach(control); }

void clsCtlImNumber::Attach(NumberField* control) { attach(control); }
