#pragma once

#include <QPlainTextEdit>

// Several lines of text; Tab leaves it, Return makes a new line.
class MemoField : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY valueChanged USER true)

public:
    explicit MemoField(QWidget* parent = nullptr);

    // The longest text in characters; what goes beyond is not taken. 0: no limit.
    int maxLength() const { return m_maxLength; }
    void setMaxLength(int characters) { m_maxLength = characters; }

    QString value() const { return toPlainText(); }
    void setValue(const QString& value);

signals:
    // The text is another one, by the operator or by the program.
    void valueChanged();

private:
    void noteChange();

    int m_maxLength = 0;
};
