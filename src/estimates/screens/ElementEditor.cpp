#include "estimates/screens/ElementEditor.h"

GridEntries gridEntries(const CellChoices& choices) {
    GridEntries entries;
    for (const CellChoice& choice : choices) entries << GridEntry{choice.value, choice.shown, choice.detail};
    return entries;
}

const ElementRules<clsCsMakeElmt>& makeRules() {
    using Line = clsCsMakeElmt;
    static const ElementRules<Line> rules{MakeGrid::mayEdit,
                                          MakeGrid::choices,
                                          MakeGrid::edited,
                                          MakeGrid::Columns,
                                          {{MakeGrid::MakeElmt, &Line::MakeElmt},
                                           {MakeGrid::Materials, &Line::Materials},
                                           {MakeGrid::Suryo, &Line::Suryo},
                                           {MakeGrid::UnitPrice, &Line::UnitPrice},
                                           {MakeGrid::Price, &Line::Price}}};
    return rules;
}

const ElementRules<clsCsCmpltElmt>& partsRules() {
    using Line = clsCsCmpltElmt;
    static const ElementRules<Line> rules{PartsGrid::mayEdit,
                                          PartsGrid::choices,
                                          PartsGrid::edited,
                                          PartsGrid::Columns,
                                          {{PartsGrid::PartsNm, &Line::PartsNm},
                                           {PartsGrid::Form, &Line::Form},
                                           {PartsGrid::PartsCd, &Line::PartsCd},
                                           {PartsGrid::MakerNm, &Line::MakerNm},
                                           {PartsGrid::Suryo, &Line::Suryo},
                                           {PartsGrid::UnitPrice, &Line::UnitPrice},
                                           {PartsGrid::Price, &Line::Price}}};
    return rules;
}
