#include "ui/SearchFields.h"

#include "base/Arrangement.h"
#include "ui/ChoiceBox.h"
#include "ui/EntryField.h"
#include "ui/basControlUtil.h"

#include <QCheckBox>
#include <QJsonArray>
#include <QTabBar>

namespace {

constexpr char keptProperty[] = "keepsConditions";

// The area itself may be such a control.
template <class Control> QList<Control*> controlsOf(QWidget* area) {
    QList<Control*> all = area->findChildren<Control*>();
    if (auto* own = qobject_cast<Control*>(area)) all.prepend(own);
    all.removeIf([](const Control* control) { return control->objectName().isEmpty(); });
    return all;
}

// The field inside of a list belongs to the list.
QList<EntryField*> fieldsOf(QWidget* area) {
    QList<EntryField*> fields = controlsOf<EntryField>(area);
    fields.removeIf([](const EntryField* field) { return qobject_cast<ChoiceBox*>(field->parentWidget()); });
    return fields;
}

QString nameOf(const QWidget* area) { return area->window()->objectName() + u'/' + area->objectName(); }

QJsonObject conditionsOf(QWidget* area) {
    QJsonObject conditions;
    for (const EntryField* field : fieldsOf(area)) conditions.insert(field->objectName(), field->value());
    for (const ChoiceBox* list : controlsOf<ChoiceBox>(area)) conditions.insert(list->objectName(), list->text());
    for (const QCheckBox* box : controlsOf<QCheckBox>(area)) conditions.insert(box->objectName(), box->isChecked());
    for (const QTabBar* tabs : controlsOf<QTabBar>(area)) conditions.insert(tabs->objectName(), tabs->currentIndex());
    return conditions;
}

// Lists first and in their order: a choice may refill the ones behind it.
void show(QWidget* area, const QJsonObject& conditions) {
    for (ChoiceBox* list : controlsOf<ChoiceBox>(area))
        if (conditions.contains(list->objectName())) list->setText(conditions.value(list->objectName()).toString());
    for (EntryField* field : fieldsOf(area))
        if (conditions.contains(field->objectName())) field->setValue(conditions.value(field->objectName()).toString());
    for (QCheckBox* box : controlsOf<QCheckBox>(area))
        if (conditions.contains(box->objectName())) box->setChecked(conditions.value(box->objectName()).toBool());
    for (QTabBar* tabs : controlsOf<QTabBar>(area))
        if (conditions.contains(tabs->objectName()))
            tabs->setCurrentIndex(conditions.value(tabs->objectName()).toInt());
}

} // namespace

namespace SearchFields {

void clear(QWidget* area) {
    for (ChoiceBox* list : controlsOf<ChoiceBox>(area))
        list->setText(list->itemText(0) == allEntry ? allEntry : QString());
    for (EntryField* field : fieldsOf(area)) field->setValue({});
    for (QCheckBox* box : controlsOf<QCheckBox>(area)) box->setChecked(false);
    for (QTabBar* tabs : controlsOf<QTabBar>(area)) tabs->setCurrentIndex(0);
}

void restore(QWidget* area) {
    area->setProperty(keptProperty, true);
    show(area, Arrangement::ofSession(nameOf(area)));
}

void keep(const QWidget* window) {
    for (QWidget* area : window->findChildren<QWidget*>())
        if (area->property(keptProperty).toBool()) Arrangement::keepForSession(nameOf(area), conditionsOf(area));
}

} // namespace SearchFields
