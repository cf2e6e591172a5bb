#pragma once

#include <QValidator>

// Drops what a field does not take, at the moment it is typed or pasted: all but one line, characters outside of a set
// and characters beyond a length. It never refuses the rest.
class EntryValidator : public QValidator {
public:
    using QValidator::QValidator;

    int maxLength = 0;         // characters by code point, 0: no limit
    QString allowedCharacters; // empty: all

    State validate(QString& input, int& cursor) const override;
};

// The characters of a text that are in a set, after full width became half width.
QString keepCharacters(const QString& text, const QString& allowed);
// Cuts a text to so many characters by dropping the ones just before the cursor, which moves along.
void cutBeforeCursor(QString& text, int& cursor, int maxLength);
