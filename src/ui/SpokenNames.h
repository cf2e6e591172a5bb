#pragma once

class QWidget;

// What a reader of the screen says of its fields: the label before a field, the heading above it, else the title of its
// group. A label becomes the buddy of the field that it names.
namespace SpokenNames {

// For all fields of a form that are laid out; a name that a form file gives stays.
void give(QWidget* form);

} // namespace SpokenNames
