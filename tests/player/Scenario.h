#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// One step of a scenario: its line, its text as written and its words.
struct Step {
    int line = 0;
    QString text;
    QStringList words;
    // The text behind a number of words, as written; for steps that take a statement.
    QString behind(int words) const;
};

struct Scenario {
    QString file;
    QList<Step> steps;
    // What is wrong with the file's text, each with its line; a scenario with faults is not played.
    QStringList faults;
};

// Words are split at blanks; a word may stand in double quotes, where "" is a quote and \n a line break. Nothing when a
// quote does not end.
std::optional<QStringList> splitWords(const QString& line);
// Lines that are empty or begin with # are no steps.
Scenario parseScenario(const QString& file, const QString& text);
// A file that cannot be read gives a scenario with that fault.
Scenario readScenario(const QString& file);
