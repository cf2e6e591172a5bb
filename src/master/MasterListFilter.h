#pragma once

#include "db/SqlText.h"

#include <QString>

// What the list of master estimates is narrowed by, as it stands in the fields. An empty text asks nothing; signs such
// as % in a text stand for themselves.
struct MasterListFilter {
    // The pages of the list, in their order: 義肢, 装具, 座位保持装置, その他, 全て.
    enum Group { Prostheses, Orthoses, Seating, Others, All };

    QString ProductCd{}, ProductNm{};
    QString Item{}, PickKbn{}, Name{}, Form{}; // one item of the master estimate answers all of these and the group
    int group = All;

    // The condition over `マスタ見積情報`; empty when nothing is asked.
    SqlTerm condition() const;

private:
    SqlTerm items() const;
};
