#pragma once

#include "ui/EntryField.h"

// One line of text, without blanks around it. A reading field turns any kana to half-width katakana when it is left, a
// field of codes or numbers (input mode off) full-width letters to half width; a name field can fill its reading with
// the kana that the input method was given.
class TextField : public EntryField {
    Q_OBJECT
    Q_PROPERTY(InputMode inputMode READ inputMode WRITE setInputMode)

public:
    enum InputMode { Hiragana, HalfKana, Off };
    Q_ENUM(InputMode)

    explicit TextField(QWidget* parent = nullptr);

    InputMode inputMode() const { return m_mode; }
    void setInputMode(InputMode mode);
    // The field that receives the reading of what is composed here.
    void setReadingField(TextField* reading) { m_reading = reading; }

protected:
    std::optional<QString> settled(const QString& typed) const override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    QString spelled(const QString& typed) const;
    void appendReading(const QString& kana, bool replace);

    InputMode m_mode = Hiragana;
    TextField* m_reading = nullptr;
    QString m_composedKana; // the last composition that was kana alone
};
