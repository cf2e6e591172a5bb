#pragma once

#include <QPlainTextEdit>

#include <optional>

// Several lines of text. Return and Tab leave it as any field, Ctrl+Return too; Alt+Return breaks the line.
class MemoField : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY valueChanged USER true)

public:
    explicit MemoField(QWidget* parent = nullptr);

    // The longest text in characters; what goes beyond is not taken. 0: no limit.
    int maxLength() const { return m_maxLength; }
    void setMaxLength(int characters) { m_maxLength = characters; }

    // As it was set as long as the operator has not made another text of it: the ends of its lines, and what is longer
    // than the field takes, are no change.
    QString value() const;
    void setValue(const QString& value);

signals:
    // The text is another one, by the operator or by the program.
    void valueChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void noteChange();

    struct Set {
        QString value, shown;
    };

    int m_maxLength = 0;
    std::optional<Set> m_set;
    bool m_setting = false;
};
