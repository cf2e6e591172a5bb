#include "ui/basFormUtil.h"

#include "base/clsProfile.h"
#include "ui/ChoiceBox.h"
#include "ui/DateField.h"
#include "ui/MemoField.h"
#include "ui/NumberField.h"
#include "ui/TextField.h"

#include <limits>

namespace {

constexpr int twipsPerPixel = 15;
constexpr char tagProperty[] = "tag";

bool isAttached(const QWidget* control) { return control->property(tagProperty) == u"Attached"_qs; }

template <class Wrapper, class Control> std::unique_ptr<InputWrapper> wrap(Control* control) {
    auto wrapper = std::make_unique<Wrapper>();
    wrapper->Attach(control);
    return wrapper;
}

// The wrapper of the fitting class; nothing for a control that holds no input.
std::unique_ptr<InputWrapper> wrapperFor(QWidget* control) {
    if (auto* date = qobject_cast<DateField*>(control)) return wrap<clsCtlImDate>(date);
    if (auto* number = qobject_cast<NumberField*>(control)) return wrap<clsCtlImNumber>(number);
    if (auto* list = qobject_cast<ChoiceBox*>(control)) return wrap<clsCtlComboBox>(list);
    if (qobject_cast<TextField*>(control) || qobject_cast<MemoField*>(control)) return wrap<clsCtlImText>(control);
    return nullptr;
}

int positionFrom(const clsProfile& profile, const QString& section, const QString& key, int pixels) {
    const QString twips = profile.GetValue(section, key, QString::number(pixels * twipsPerPixel));
    if (twips.isEmpty()) return pixels;
    return static_cast<int>(profile.GetNumber(section, key, 0, std::numeric_limits<qint32>::min(),
                                              std::numeric_limits<qint32>::max())) /
           twipsPerPixel;
}

} // namespace

void AttachControls(QWidget* form, InputWrappers& wrappers) {
    for (QWidget* control : form->findChildren<QWidget*>()) {
        if (isAttached(control)) continue;
        if (auto wrapper = wrapperFor(control)) wrappers.push_back(std::move(wrapper));
    }
}

bool IsAnyEdited(const InputWrappers& wrappers) {
    return std::any_of(wrappers.begin(), wrappers.end(), [](const auto& wrapper) { return wrapper->Edited(); });
}

void ClearEdited(const InputWrappers& wrappers) {
    for (const auto& wrapper : wrappers) wrapper->setEdited(false);
}

void ReleaseControls(QWidget* form, InputWrappers& wrappers) {
    wrappers.clear();
    for (QWidget* control : form->findChildren<QWidget*>())
        if (isAttached(control)) control->setProperty(tagProperty, QVariant());
}

void RestoreFormPosition(QWidget* form) {
    const clsProfile profile;
    const int top = positionFrom(profile, form->objectName(), u"Top"_qs, form->y());
    const int left = positionFrom(profile, form->objectName(), u"Left"_qs, form->x());
    form->move(left, top);
}

void SaveFormPosition(const QWidget* form) {
    if (form->isMinimized() || form->isMaximized()) return;
    clsProfile().Remember(form->objectName(), {{u"Top"_qs, QString::number(form->y() * twipsPerPixel)},
                                               {u"Left"_qs, QString::number(form->x() * twipsPerPixel)}});
}
