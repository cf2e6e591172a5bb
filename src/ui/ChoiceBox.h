#pragma once

#include <QComboBox>

class EntryField;

// A list of entries with item data, or an editable field with such a list.
class ChoiceBox : public QComboBox {
    Q_OBJECT
    Q_PROPERTY(bool mayBeEmpty MEMBER m_mayBeEmpty)
    Q_PROPERTY(bool numeric READ isNumeric WRITE setNumeric)

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    // An editable box suggests the entries that hold what is typed, and never completes on its own; Return takes the
    // only one that does. What is typed or pasted beside the list goes through a field like any other.
    void setEditable(bool editable);
    // An editable box that takes numbers alone.
    bool isNumeric() const { return m_numeric; }
    void setNumeric(bool numeric);
    // The longest text of an editable box, in characters; what goes beyond is not taken.
    void setMaxLength(int characters);

    void addEntry(const QString& text, const QString& data = {}) { addItem(text, data); }
    void clearEntries();

    // What the program works with: the chosen entry, or the text beside the list, as it was set until the operator has
    // made another one of it.
    QString text() const;
    // What the box shows.
    QString shownText() const { return isEditable() ? currentText() : text(); }
    // Chooses the entry of that text; a text that is not in the list is shown all the same, with no entry chosen.
    void setText(const QString& text);
    // The item data of the chosen entry; empty when nothing is chosen.
    QString data() const;
    // Chooses the entry with that item data, or nothing. False when there is none.
    bool chooseByData(const QString& data);
    void clearChoice() { setText({}); }

    // Where the property `mayBeEmpty` is set, Delete takes the choice back.

    // As wide as its entries, but a long one among them does not widen the form.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // Another text is shown or another entry is chosen, by the operator or by the program.
    void valueChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int chosenIndex() const;
    void noteChange();
    void takeOnlySuggestion();
    bool closeSuggestions(const QKeyEvent* event);

    void setField(EntryField* field);

    EntryField* m_field = nullptr; // of an editable box
    bool m_typed = false;          // since the focus came
    bool m_numeric = false;
    bool m_mayBeEmpty = false;
    QString m_foreignText; // shown while no entry is chosen
    QString m_lastText;
    QString m_lastData;
};
