#include "StepTable.h"

#include "Expectations.h"
#include "Operator.h"
#include "Player.h"
#include "StepFailure.h"

namespace {

using Args = QStringList;

bool isOn(const QString& word) {
    if (word == u"on") return true;
    if (word == u"off") return false;
    throw StepFailure{word, u"on or off"_qs};
}

bool isFull(const QString& word) {
    if (word == u"full") return true;
    if (word == u"free") return false;
    throw StepFailure{word, u"full or free"_qs};
}

bool isYes(const QString& word) {
    if (word == u"yes") return true;
    if (word == u"no") return false;
    throw StepFailure{word, u"yes or no"_qs};
}

int number(const QString& word) {
    bool valid = false;
    const int value = word.toInt(&valid);
    if (!valid) throw StepFailure{word, u"a whole number"_qs};
    return value;
}

CutLine::Cut cutOf(const QString& word) {
    static const QHash<QString, CutLine::Cut> cuts{{u"closed"_qs, CutLine::Cut::Closed},
                                                   {u"reset"_qs, CutLine::Cut::Reset},
                                                   {u"answers"_qs, CutLine::Cut::Answers},
                                                   {u"commit"_qs, CutLine::Cut::Commit},
                                                   {u"commit-answer"_qs, CutLine::Cut::CommitAnswer}};
    const auto cut = cuts.find(word);
    if (cut == cuts.end()) throw StepFailure{word, QStringList(cuts.keys()).join(u", "_qs)};
    return *cut;
}

// A statement may stand as it is or as one quoted word.
QString statement(const Step& step, const Args& args, int wordsBefore) {
    return args.size() == 1 ? args.first() : step.behind(wordsBefore);
}

QList<StepKind> preparing() {
    using enum StepKind::Effect;
    return {
        {u"ini"_qs, u"SECTION KEY VALUE"_qs, u"before start: write an INI value"_qs, 3, 3, Prepares,
         [](Player& p, const Step&, const Args& a) { p.writeIni(a.at(0), a.at(1), a.at(2)); }},
        {u"clock"_qs, u"DATE"_qs, u"the clock shows this day"_qs, 1, 1, Prepares,
         [](Player& p, const Step&, const Args& a) { p.setClock(a.at(0)); }},
        {u"sql"_qs, u"STATEMENT"_qs, u"run a statement of the system's SQL on a connection of its own"_qs, 1, -1,
         Prepares, [](Player& p, const Step& s, const Args& a) { p.office().execute(statement(s, a, 1)); }},
        {u"line"_qs, u"on|off"_qs,
         u"server only, first before start: the program goes over a line that takes connections or refuses them"_qs, 1,
         1, Prepares, [](Player& p, const Step&, const Args& a) { p.office().line().take(isOn(a.at(0))); }},
        {u"cut"_qs, u"HOW"_qs,
         u"cut that line: closed, reset, answers; at the next commit: commit (it is lost), commit-answer"_qs, 1, 1,
         Prepares, [](Player& p, const Step&, const Args& a) { p.office().line().cut(cutOf(a.at(0))); }},
        {u"disk"_qs, u"full|free"_qs, u"on a small disk of the test's own: take all room that is left, give it back"_qs,
         1, 1, Prepares,
         [](Player& p, const Step&, const Args& a) {
             isFull(a.at(0)) ? p.office().fillDisk() : p.office().freeDisk();
         }},
        {u"load sample"_qs,
         {},
         u"fill the new database with the sample office and its price list"_qs,
         0,
         0,
         Prepares,
         [](Player& p, const Step&, const Args&) { p.office().loadSample(); }},
        {u"keep arrangement"_qs,
         {},
         u"before start: sizes, widths, sorts, conditions and the last orders stay, in arrangement.json"_qs,
         0,
         0,
         Prepares,
         [](Player& p, const Step&, const Args&) { p.keepArrangement(); }},
        {u"write"_qs, u"PATH TEXT"_qs, u"write a file of the program folder in CP932"_qs, 2, 2, Prepares,
         [](Player& p, const Step&, const Args& a) { p.writeFile(a.at(0), a.at(1)); }},
        {u"answer"_qs, u"WORD..."_qs, u"prepare answers of the coming questions: yes no cancel ok retry"_qs, 1, -1,
         Prepares, [](Player& p, const Step&, const Args& a) { p.answers().prepare(a); }},
        {u"file"_qs, u"PATH"_qs, u"prepare the answer of the next file or folder dialog; cancel cancels it"_qs, 1, 1,
         Prepares, [](Player& p, const Step&, const Args& a) { p.answers().prepareFile(a.at(0)); }},
    };
}

QList<StepKind> acting() {
    using enum StepKind::Effect;
    return {
        {u"start"_qs,
         {},
         u"start the program until the menu shows"_qs,
         0,
         0,
         Acts,
         [](Player& p, const Step&, const Args&) { p.startProgram(); }},
        {u"stop"_qs,
         {},
         u"close the menu"_qs,
         0,
         0,
         Acts,
         [](Player& p, const Step&, const Args&) { p.stopProgram(); }},
        {u"first start"_qs,
         {},
         u"start as an installed program does in an office that is not set up yet"_qs,
         0,
         0,
         Acts,
         [](Player& p, const Step&, const Args&) { p.startFirst(); }},
        {u"crash"_qs,
         {},
         u"end the program as a power cut does: no screen is asked, nothing is saved"_qs,
         0,
         0,
         Acts,
         [](Player& p, const Step&, const Args&) { p.crashProgram(); }},
        {u"minute"_qs,
         {},
         u"a minute passes: what is under edit is kept as a draft"_qs,
         0,
         0,
         Acts,
         [](Player&, const Step&, const Args&) { Operator::letMinutePass(); }},
        {u"press"_qs, u"NAME"_qs, u"click a button, option or tick box"_qs, 1, 1, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).press(a.at(0)); }},
        {u"type"_qs, u"NAME TEXT"_qs, u"focus, select all, type, leave the field; a list takes its entries only"_qs, 2,
         2, Acts, [](Player& p, const Step&, const Args& a) { Operator(p).type(a.at(0), a.at(1)); }},
        {u"paste"_qs, u"NAME TEXT"_qs, u"focus, select all, paste from the clipboard, leave the field"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).paste(a.at(0), a.at(1)); }},
        {u"clipboard"_qs, u"TEXT"_qs, u"another program puts TEXT on the clipboard"_qs, 1, 1, Acts,
         [](Player&, const Step&, const Args& a) { Operator::clipboard(a.at(0)); }},
        {u"key"_qs, u"NAME KEYS"_qs, u"send keys such as Return or Alt+U"_qs, 2, -1, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).key(a.at(0), a.mid(1)); }},
        {u"choose"_qs, u"NAME TEXT"_qs, u"pick an entry of a list by its shown text"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).choose(a.at(0), a.at(1)); }},
        {u"tick"_qs, u"NAME on|off"_qs, u"set a tick box"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).tick(a.at(0), isOn(a.at(1))); }},
        {u"tab"_qs, u"NAME INDEX"_qs, u"choose a tab, counted from 0"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).tab(a.at(0), number(a.at(1))); }},
        {u"cell"_qs, u"GRID ROW COL TEXT"_qs,
         u"edit one cell: enter, choose or type, leave; COL is a number or a heading"_qs, 4, 4, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).cell(a.at(0), number(a.at(1)), a.at(2), a.at(3)); }},
        {u"tickcell"_qs, u"GRID ROW COL on|off"_qs, u"set the tick box of a cell"_qs, 4, 4, Acts,
         [](Player& p, const Step&, const Args& a) {
             Operator(p).tickCell(a.at(0), number(a.at(1)), a.at(2), isOn(a.at(3)));
         }},
        {u"row"_qs, u"GRID ROW"_qs, u"make a row current"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).row(a.at(0), number(a.at(1))); }},
        {u"open"_qs, u"GRID ROW"_qs, u"double-click a row"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).open(a.at(0), number(a.at(1))); }},
        {u"head"_qs, u"GRID COL"_qs, u"click the heading of a column"_qs, 2, 2, Acts,
         [](Player& p, const Step&, const Args& a) { Operator(p).head(a.at(0), a.at(1)); }},
        {u"close"_qs,
         {},
         u"close the topmost screen by its frame"_qs,
         0,
         0,
         Acts,
         [](Player& p, const Step&, const Args&) { Operator(p).close(); }},
    };
}

QList<StepKind> expectingScreens() {
    return {
        {u"expect screen"_qs, u"NAME"_qs, u"the topmost screen"_qs, 1, 1, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::screen(a.at(0)); }},
        {u"expect title"_qs, u"TEXT"_qs, u"the title of the topmost screen"_qs, 1, 1, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::title(a.at(0)); }},
        {u"expect message"_qs, u"TEXT"_qs, u"the oldest message not yet expected contains TEXT"_qs, 1, 1,
         StepKind::Looks, [](Player& p, const Step&, const Args& a) { p.answers().expectMessage(a.at(0)); }},
        {u"expect question"_qs, u"TEXT"_qs, u"the oldest answered question not yet expected contains TEXT"_qs, 1, 1,
         StepKind::Looks, [](Player& p, const Step&, const Args& a) { p.answers().expectQuestion(a.at(0)); }},
        {u"expect no message"_qs,
         {},
         u"every message was expected"_qs,
         0,
         0,
         StepKind::Looks,
         [](Player& p, const Step&, const Args&) { p.answers().expectNoMessage(); }},
        {u"expect text"_qs, u"NAME TEXT"_qs, u"what the control shows"_qs, 2, 2, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::text(a.at(0), a.at(1)); }},
        {u"expect cell"_qs, u"GRID ROW COL TEXT"_qs,
         u"what the cell shows, on or off for a tick box; row 0 holds the headings"_qs, 4, 4, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::cell(a.at(0), number(a.at(1)), a.at(2), a.at(3)); }},
        {u"expect rows"_qs, u"GRID N"_qs, u"the number of rows of a grid"_qs, 2, 2, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::rows(a.at(0), number(a.at(1))); }},
        {u"expect list"_qs, u"NAME \"a|b|c\""_qs, u"the entries of a list"_qs, 2, 2, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::list(a.at(0), a.at(1)); }},
        {u"expect enabled"_qs, u"NAME yes|no"_qs, u"whether a control can be used"_qs, 2, 2, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::enabled(a.at(0), isYes(a.at(1))); }},
        {u"expect hint"_qs, u"NAME TEXT"_qs, u"the hint of a control contains TEXT; \"\" when it has none"_qs, 2, 2,
         StepKind::Looks, [](Player&, const Step&, const Args& a) { Expect::hint(a.at(0), a.at(1)); }},
        {u"expect mark"_qs, u"NAME TEXT"_qs, u"the word that a field is marked with; \"\" for none"_qs, 2, 2,
         StepKind::Looks, [](Player&, const Step&, const Args& a) { Expect::mark(a.at(0), a.at(1)); }},
        {u"expect aside"_qs, u"GRID ROW COL TEXT"_qs, u"the word that a cell tells besides; \"\" for none"_qs, 4, 4,
         StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::aside(a.at(0), number(a.at(1)), a.at(2), a.at(3)); }},
        {u"expect clipboard"_qs, u"TEXT"_qs, u"what other programs find on the clipboard"_qs, 1, 1, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::clipboard(a.at(0)); }},
        {u"expect visible"_qs, u"NAME yes|no"_qs, u"whether a control is shown"_qs, 2, 2, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::visible(a.at(0), isYes(a.at(1))); }},
        {u"expect checked"_qs, u"NAME yes|no"_qs, u"whether a tick box or option is set"_qs, 2, 2, StepKind::Looks,
         [](Player&, const Step&, const Args& a) { Expect::checked(a.at(0), isYes(a.at(1))); }},
    };
}

QList<StepKind> expectingResults() {
    return {
        {u"expect sql"_qs, u"SELECT VALUE"_qs, u"first field of the first row as text; empty when there is no row"_qs,
         2, 2, StepKind::Looks, [](Player& p, const Step&, const Args& a) { p.expectSql(a.at(0), a.at(1)); }},
        {u"expect log"_qs, u"TEXT"_qs, u"today's log holds TEXT"_qs, 1, 1, StepKind::Looks,
         [](Player& p, const Step&, const Args& a) { p.expectLog(a.at(0)); }},
        {u"expect file"_qs, u"PATH TEXT"_qs, u"a file of the program folder (CP932 or UTF-8) holds TEXT"_qs, 2, 2,
         StepKind::Looks, [](Player& p, const Step&, const Args& a) { p.expectFile(a.at(0), a.at(1)); }},
        {u"expect no file"_qs, u"PATH"_qs, u"the program folder holds no such file"_qs, 1, 1, StepKind::Looks,
         [](Player& p, const Step&, const Args& a) { p.expectNoFile(a.at(0)); }},
        {u"expect documents"_qs, u"\"repA repB\""_qs,
         u"the report classes printed or previewed since the last acting step, in order"_qs, 1, 1, StepKind::Looks,
         [](Player& p, const Step&, const Args& a) { p.papers().expectDocuments(a.at(0)); }},
        {u"expect pages"_qs, u"N"_qs, u"the pages of these documents together"_qs, 1, 1, StepKind::Looks,
         [](Player& p, const Step&, const Args& a) { p.papers().expectPages(number(a.at(0))); }},
        {u"expect page"_qs, u"K TEXT"_qs, u"page K of these documents holds TEXT"_qs, 2, 2, StepKind::Looks,
         [](Player& p, const Step&, const Args& a) { p.papers().expectPage(number(a.at(0)), a.at(1)); }},
        {u"save pdf"_qs, u"NAME"_qs, u"write the last printed pages into the --out folder"_qs, 1, 1, StepKind::Looks,
         [](Player& p, const Step&, const Args& a) { p.papers().savePdf(p.outFile(a.at(0), u"pdf"_qs)); }},
        {u"shot"_qs, u"NAME"_qs, u"write a picture of the topmost screen into the --out folder"_qs, 1, 1,
         StepKind::Looks, [](Player& p, const Step&, const Args& a) { p.takeShot(a.at(0)); }},
    };
}

int leadingWords(const StepKind& kind) { return static_cast<int>(kind.words.count(u' ')) + 1; }

} // namespace

const QList<StepKind>& stepKinds() {
    static const QList<StepKind> kinds = preparing() + acting() + expectingScreens() + expectingResults();
    return kinds;
}

const StepKind* kindOf(const Step& step) {
    for (const StepKind& kind : stepKinds())
        if (step.words.mid(0, leadingWords(kind)).join(u' ') == kind.words) return &kind;
    return nullptr;
}

QStringList argumentsOf(const Step& step, const StepKind& kind) { return step.words.mid(leadingWords(kind)); }

QString faultOf(const Step& step) {
    const StepKind* kind = kindOf(step);
    if (!kind) return u"there is no such step"_qs;
    const auto given = argumentsOf(step, *kind).size();
    if (given >= kind->least && (kind->most < 0 || given <= kind->most)) return {};
    return u"the step is: %1 %2"_qs.arg(kind->words, kind->arguments);
}

QString stepList() {
    QString list;
    for (const StepKind& kind : stepKinds())
        list += u"%1  %2\n"_qs.arg((kind.words + u' ' + kind.arguments).trimmed().leftJustified(32), kind.meaning);
    return list;
}
