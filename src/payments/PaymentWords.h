#pragma once

#include <QString>

// What was searched for, as papers and files tell it.

// The ordering party by what was typed of it.
QString searchedParty(const QString& code, const QString& name);
// "2026年04月01日から2026年04月30日まで", and in years of the era; one end alone, or nothing.
QString periodOnPaper(const QString& from, const QString& to);
QString periodInEra(const QString& from, const QString& to);
