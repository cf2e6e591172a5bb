#pragma once

#include <QLineEdit>

#include <optional>

class EntryValidator;

// The common ground of all one-line fields. Everything that the operator types is kept until it is left; leaving turns
// it into its settled form, or tells what is wrong with it and brings the focus back with the text as typed.
//
// What the program sets is shown in its settled form, but given back as it was set as long as the operator has not made
// another text of it: that a field shows a stored text otherwise is no change.
//
// A button with the dynamic property `leavesUnchecked` (キャンセル, 閉じる) may be pressed with a wrong entry.
class EntryField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY valueChanged USER true)

public:
    explicit EntryField(QWidget* parent = nullptr);

    // The longest text, counted in characters (a rare kanji is one); what goes beyond is not taken. 0: no limit.
    int maxLength() const;
    void setMaxLength(int characters);

    // What the program works with, also while the operator still types; empty when empty or not valid.
    QString value() const;
    void setValue(const QString& value);
    // The same where the operator goes on writing: on reaching the field by a key the caret stands behind the value,
    // and nothing is selected, so that no key wipes it out.
    void fillIn(const QString& value);

    // Brings the text into its settled form. False when it is wrong, the text then stays as it is.
    bool commit();
    // What to tell of a wrong entry.
    virtual QString complaint() const { return {}; }
    // Tells it and takes the focus back.
    void complain();

signals:
    // The value is another one, by the operator or by the program.
    void valueChanged();
    // The same once the entry is whole: when the field is left, or when the program has set it.
    void valueSettled();

protected:
    // The text shown for a typed one when the field is left; nothing when the entry is wrong.
    virtual std::optional<QString> settled(const QString& typed) const = 0;
    // The value of a typed text, and of one that was set; the latter may be wrong.
    virtual QString valueOfTyped(const QString& typed) const { return settled(typed).value_or(QString()); }
    virtual QString valueOfSet(const QString& value) const { return value; }
    // The text shown for a value that is set.
    virtual QString shownFor(const QString& value) const { return settled(value).value_or(value); }
    // The text to edit for a settled one.
    virtual QString editable(const QString& shown) const { return shown; }
    // Only these characters are taken (full width is narrowed first); empty: all.
    void setAllowedCharacters(const QString& characters);
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void noteChange();
    void complainUnlessExcused();

    // The text shown when the field is left; nothing when the entry is wrong.
    std::optional<QString> shownWhenLeft() const;
    bool isAsSet() const { return m_set && editable(text()) == m_set->edited; }
    void noteSettled();

    // What was set last, how it is shown, and how it is edited.
    struct Set {
        QString value, shown, edited;
    };

    EntryValidator* m_validator;
    std::optional<Set> m_set;
    bool m_setting = false;
    QString m_lastValue;
    QString m_lastSettled;
    bool m_goesOn = false; // filled in, and not written to since
};
