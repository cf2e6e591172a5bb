#include "estimates/screens/ElementEditor.h"

namespace {

Cells makeCells(const clsCsMakeElmt& line) {
    Cells cells(MakeGrid::Columns);
    cells[MakeGrid::MakeElmt] = line.MakeElmt;
    cells[MakeGrid::Materials] = line.Materials;
    cells[MakeGrid::Suryo] = line.Suryo;
    cells[MakeGrid::UnitPrice] = line.UnitPrice;
    cells[MakeGrid::Price] = line.Price;
    return cells;
}

std::optional<clsCsMakeElmt> makeLine(const Cells& cells) {
    if (cells.at(MakeGrid::MakeElmt).isEmpty() || cells.at(MakeGrid::Price).isEmpty()) return std::nullopt;
    clsCsMakeElmt line;
    line.MakeElmt = cells.at(MakeGrid::MakeElmt);
    line.Materials = cells.at(MakeGrid::Materials);
    line.Suryo = cells.at(MakeGrid::Suryo);
    line.UnitPrice = cells.at(MakeGrid::UnitPrice);
    line.Price = cells.at(MakeGrid::Price);
    return line;
}

Cells partCells(const clsCsCmpltElmt& line) {
    Cells cells(PartsGrid::Columns);
    cells[PartsGrid::PartsNm] = line.PartsNm;
    cells[PartsGrid::Form] = line.Form;
    cells[PartsGrid::PartsCd] = line.PartsCd;
    cells[PartsGrid::MakerNm] = line.MakerNm;
    cells[PartsGrid::Suryo] = line.Suryo;
    cells[PartsGrid::UnitPrice] = line.UnitPrice;
    cells[PartsGrid::Price] = line.Price;
    return cells;
}

std::optional<clsCsCmpltElmt> partLine(const Cells& cells) {
    if (cells.at(PartsGrid::PartsNm).isEmpty() || cells.at(PartsGrid::Price).isEmpty()) return std::nullopt;
    clsCsCmpltElmt line;
    line.PartsNm = cells.at(PartsGrid::PartsNm);
    line.Form = cells.at(PartsGrid::Form);
    line.PartsCd = cells.at(PartsGrid::PartsCd);
    line.MakerNm = cells.at(PartsGrid::MakerNm);
    line.Suryo = cells.at(PartsGrid::Suryo);
    line.UnitPrice = cells.at(PartsGrid::UnitPrice);
    line.Price = cells.at(PartsGrid::Price);
    return line;
}

} // namespace

GridEntries gridEntries(const CellChoices& choices) {
    GridEntries entries;
    for (const CellChoice& choice : choices) entries << GridEntry{choice.value, choice.shown, choice.detail};
    return entries;
}

const ElementRules<clsCsMakeElmt>& makeRules() {
    static const ElementRules<clsCsMakeElmt> rules{MakeGrid::mayEdit, MakeGrid::choices, MakeGrid::edited,
                                                   makeCells,         makeLine,          MakeGrid::Price};
    return rules;
}

const ElementRules<clsCsCmpltElmt>& partsRules() {
    static const ElementRules<clsCsCmpltElmt> rules{PartsGrid::mayEdit, PartsGrid::choices, PartsGrid::edited,
                                                    partCells,          partLine,           PartsGrid::Price};
    return rules;
}
