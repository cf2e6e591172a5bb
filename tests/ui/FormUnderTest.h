#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

// A window with fields below each other, shown and active, and a plain last field to leave the others for.
class FormUnderTest : public QWidget {
public:
    template <class Field> Field* add() {
        auto* field = new Field(this);
        layout()->addWidget(field);
        return field;
    }

    FormUnderTest() { setLayout(new QVBoxLayout); }

    void open() {
        layout()->addWidget(&m_last);
        show();
        QApplication::setActiveWindow(this);
        QCoreApplication::processEvents();
    }

    // What an operator does to a field: go there, type over what stands in it.
    void type(QWidget* field, const QString& text) {
        field->setFocus(Qt::TabFocusReason);
        for (const char32_t c : text.toUcs4()) { // a rare kanji is one keystroke
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&c, 1));
            QApplication::sendEvent(field, &press);
        }
    }

    void leave() {
        m_last.setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
    }

    void enter(QWidget* field, const QString& text) {
        type(field, text);
        leave();
    }

private:
    QLineEdit m_last;
};
