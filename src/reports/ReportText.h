#pragma once

#include <QString>
#include <QVariant>

// How numbers and dates read on paper.
namespace ReportText {

// A number in a form with one of "#,##0", "#,###" (zero prints as nothing), "#,###.#" (the same with its decimals) or
// "0" in it and fixed words around, such as "#,##0円"; ties round away from zero. A null value gives the empty text; an
// empty form gives the value as it stands.
QString number(const QVariant& value, const QString& form);
// True when the form holds one of the number patterns.
bool isNumberForm(const QString& form);

// The date of a text in a western form such as "yyyy年mm月dd日" or an era form, "ggge年m月d日" or, by the era's letter
// and a year of two digits, "gee.mm.dd". No date gives the empty text.
QString date(const QString& value, const QString& form);
// True when the form holds one of the letters of a date.
bool isDateForm(const QString& form);

// The issue date of a document in full width. The form is 1 (year, month, day), 2 (year, month), 3 (year) or any other
// (era alone); what the form leaves out stays blank for the pen. No date gives the blank form of today's era when
// `blankForm` is set, else the empty text.
QString issueDate(const QString& date, int form, bool blankForm);

// A text of more characters (UTF-16 units) than that ends with "…".
QString shortened(const QString& text, int size);

} // namespace ReportText
