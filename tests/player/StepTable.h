#pragma once

#include "Scenario.h"

#include <functional>

class Player;

// One kind of step: its leading words, what it takes, what it means and what it does.
struct StepKind {
    enum Effect { Prepares, Acts, Looks };

    QString words;     // "expect cell"
    QString arguments; // "GRID ROW COL TEXT"
    QString meaning;
    int least = 0; // arguments
    int most = 0;  // -1: any number
    Effect effect = Looks;
    std::function<void(Player&, const Step&, const QStringList& arguments)> run;
};

const QList<StepKind>& stepKinds();
// The kind of a step, or nothing when there is none.
const StepKind* kindOf(const Step& step);
QStringList argumentsOf(const Step& step, const StepKind& kind);
// What is wrong with a step's words; empty when it can be played.
QString faultOf(const Step& step);
// All steps with their meaning, for the operator of the player.
QString stepList();
