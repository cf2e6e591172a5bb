#pragma once

#include <QString>
#include <QStringList>

class Player;
class QWidget;

// Works a screen as a person would: goes to the control first, so that the field before is left, then acts.
class Operator {
public:
    explicit Operator(Player& player) : m_player(player) {}

    void press(const QString& name);
    void type(const QString& name, const QString& text);
    void paste(const QString& name, const QString& text);
    static void clipboard(const QString& text);
    void key(const QString& name, const QStringList& keys);
    void choose(const QString& name, const QString& text);
    void tick(const QString& name, bool on);
    void tab(const QString& name, int index);
    void cell(const QString& grid, int row, const QString& column, const QString& text);
    void tickCell(const QString& grid, int row, const QString& column, bool on);
    void row(const QString& grid, int row);
    void open(const QString& grid, int row);
    void head(const QString& grid, const QString& column);
    void close();
    // What a minute does to the open screens.
    static void letMinutePass();

private:
    // Goes to a control and, when the loop has come to rest, acts on it; not when another field kept the focus, because
    // its entry is wrong.
    void goTo(QWidget* control, std::function<void()> act);
    void pick(QWidget* control, const QString& entry);

    Player& m_player;
};
