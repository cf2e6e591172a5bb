#include "reports/ReportLayout.h"

#include "base/AppError.h"
#include "reports/JsonKeys.h"
#include "reports/ReportLayoutNode.h"
#include "reports/ReportLayoutScale.h"
#include "reports/ReportText.h"

#include <QFile>
#include <QJsonDocument>
#include <QStringList>

// Has to stand outside of any namespace: the resource is part of a static library, which drops it unless named.
static void keepLayoutResource() { Q_INIT_RESOURCE(layouts); }

namespace {

using Node = ReportLayoutNode;

struct PaperSize {
    int width = 0, height = 0;
};

const QHash<QString, PaperSize>& paperSizes() {
    static const QHash<QString, PaperSize> sizes{{u"A4"_qs, {11906, 16838}}, {u"B5"_qs, {10318, 14570}}};
    return sizes;
}

constexpr std::array<QStringView, 7> bandNames{u"pageHeader", u"groupHeader",  u"detail",        u"groupFooter",
                                               u"pageFooter", u"reportFooter", u"groupContinued"};

// --- JSON ---

[[noreturn]] void failAt(const QString& file, const QByteArray& json, qsizetype offset, const QString& reason) {
    const QByteArray before = json.left(offset);
    const qsizetype line = before.count('\n') + 1;
    const qsizetype column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    throw AppError(
        u"帳票レイアウト %1.json の %2 行 %3 桁を読めません: %4"_qs.arg(file).arg(line).arg(column).arg(reason),
        u"ReportLayout"_qs);
}

QJsonObject parsed(const QString& file, const ReportLayoutSource& source) {
    const QByteArray json = source(file);
    if (json.isNull()) throw AppError(u"帳票レイアウト %1.json がありません。"_qs.arg(file), u"ReportLayout"_qs);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) failAt(file, json, error.offset, error.errorString());
    if (const auto repeated = repeatedJsonKey(json)) failAt(file, json, *repeated, u"同じ名前が二度あります。"_qs);
    if (!document.isObject()) failAt(file, json, 0, u"全体を { } で囲んでください。"_qs);
    return document.object();
}

QJsonObject merged(QJsonObject base, const QJsonObject& changes) {
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        if (change.value().isNull())
            base.remove(change.key());
        else if (change.value().isObject() && base.value(change.key()).isObject())
            base.insert(change.key(), merged(base.value(change.key()).toObject(), change.value().toObject()));
        else
            base.insert(change.key(), change.value());
    }
    return base;
}

// --- items ---

using Fonts = QHash<QString, ReportFont>;

ReportFont readFont(const Node& node) {
    node.allow({u"family"_qs, u"size"_qs, u"bold"_qs, u"spacing"_qs});
    return {node[u"family"].choice({u"mincho"_qs, u"gothic"_qs}) == 1, node[u"size"].points(), node[u"bold"].flag(),
            node[u"spacing"].twips(0)};
}

ReportRect readRect(const Node& node) {
    const QList<int> numbers = node.twipsList(4);
    if (numbers.at(2) < 0 || numbers.at(3) < 0) node.fail(u"幅と高さは 0 以上にしてください。"_qs);
    return {numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3)};
}

QList<ReportSizeStep> readSizes(const Node& node) {
    QList<ReportSizeStep> steps;
    for (const Node& step : node.elements()) {
        const QList<Node> pair = step.elements();
        if (pair.size() != 2) step.fail(u"[バイト数, 文字の大きさ] の形にしてください。"_qs);
        steps.append({pair.at(0).twips(), pair.at(1).points()});
    }
    return steps;
}

// A control named txtEstNo shows the field EstNo and one named lblOffice the parameter lblOffice, unless it says else.
void readValue(const Node& node, ReportTextItem& item) {
    item.text = node[u"text"].text();
    item.fields = node[u"field"].text().split(u'+', Qt::SkipEmptyParts);
    item.parameter = node[u"parameter"].text();
    item.sum = node[u"sum"].text();
    item.over =
        static_cast<ReportSumOver>(node[u"over"].choice({u"page"_qs, u"group"_qs, u"report"_qs, u"running"_qs}));
    if (node.has(u"sum") != node.has(u"over")) node.fail(u"sum と over は一緒に書いてください。"_qs);
    const int given = node.has(u"text") + node.has(u"field") + node.has(u"parameter") + node.has(u"sum");
    if (given > 1) node.fail(u"text・field・parameter・sum はどれか一つにしてください。"_qs);
    if (given == 1) return;
    if (item.name.startsWith(u"txt"))
        item.fields = {item.name.mid(3)};
    else
        item.parameter = item.name;
}

void readWords(const Node& node, ReportTextItem& item) {
    item.hasWords = node.has(u"words");
    for (const auto& [value, words] : node[u"words"].members()) item.words.insert(value, words.text());
    item.otherwise = node[u"otherwise"].text();
}

void readDate(const Node& node, ReportTextItem& item) {
    item.date = node[u"date"].text();
    if (!node.has(u"date")) return;
    if (!ReportText::isDateForm(item.date)) node[u"date"].fail(u"yyyy/mm/dd や ggge年m月d日 の形にしてください。"_qs);
    if (node.has(u"format")) node.fail(u"date と format はどちらかにしてください。"_qs);
}

void readDigits(const Node& node, ReportTextItem& item) {
    item.digits = node[u"digits"].twips(0);
    item.lead = node[u"lead"].text();
    if (node.has(u"digits") && (item.digits < 1 || item.at.width % item.digits != 0))
        node[u"digits"].fail(u"枠の数は 1 以上、at の幅を割り切れる数にしてください。"_qs);
    if (node.has(u"lead") && (item.digits == 0 || item.lead.size() != 1))
        node[u"lead"].fail(u"digits のある項目に一文字で書いてください。"_qs);
}

// Only a page has records of its own; any other band stands for one.
void readRecord(const Node& node, bool ofPage, ReportTextItem& item) {
    item.record = static_cast<ReportRecordOf>(node[u"record"].choice({u"band"_qs, u"first"_qs, u"last"_qs}));
    if (node.has(u"record") && !ofPage) node[u"record"].fail(u"pageHeader と pageFooter だけに書けます。"_qs);
}

ReportTextItem readText(const Node& node, const QString& name, const Fonts& fonts, bool ofPage) {
    node.allow({u"at"_qs,     u"text"_qs,  u"field"_qs, u"parameter"_qs, u"font"_qs,   u"size"_qs,   u"align"_qs,
                u"fit"_qs,    u"sizes"_qs, u"words"_qs, u"otherwise"_qs, u"format"_qs, u"showIf"_qs, u"caption"_qs,
                u"record"_qs, u"sum"_qs,   u"over"_qs,  u"date"_qs,      u"digits"_qs, u"lead"_qs});
    ReportTextItem item;
    item.name = name;
    item.at = readRect(node[u"at"]);
    readValue(node, item);
    readWords(node, item);
    readDate(node, item);
    readDigits(node, item);
    readRecord(node, ofPage, item);
    const QString font = node.has(u"font") ? node[u"font"].text() : u"body"_qs;
    if (!fonts.contains(font)) node.fail(u"書体「%1」が fonts にありません。"_qs.arg(font));
    item.font = fonts.value(font);
    if (node.has(u"size")) item.font.size = node[u"size"].points();
    item.align = static_cast<ReportAlign>(node[u"align"].choice({u"left"_qs, u"center"_qs, u"right"_qs}));
    item.wrap = node[u"fit"].choice({u"shrink"_qs, u"wrap"_qs}) == 1;
    item.sizes = readSizes(node[u"sizes"]);
    item.format = node[u"format"].text();
    item.caption = node[u"caption"].text();
    item.showIf = node[u"showIf"].text();
    return item;
}

ReportLineItem readLine(const Node& node, const QString& name) {
    node.allow({u"line"_qs, u"width"_qs, u"dash"_qs, u"showIf"_qs});
    const QList<int> ends = node[u"line"].twipsList(4);
    return {name,
            ends.at(0),
            ends.at(1),
            ends.at(2),
            ends.at(3),
            node[u"width"].twips(10),
            node[u"dash"].flag(),
            node[u"showIf"].text()};
}

ReportBoxItem readBox(const Node& node, const QString& name) {
    node.allow({u"box"_qs, u"width"_qs, u"dash"_qs, u"shade"_qs, u"showIf"_qs});
    const int shade = node[u"shade"].twips(0);
    if (shade < 0 || shade > 100) node[u"shade"].fail(u"0 から 100 までにしてください。"_qs);
    return {name,  readRect(node[u"box"]), node[u"width"].twips(10), node[u"dash"].flag(),
            shade, node[u"showIf"].text()};
}

ReportBand readBand(const Node& node, const Fonts& fonts, bool ofPage) {
    node.allow({u"height"_qs, u"items"_qs});
    ReportBand band;
    band.height = node[u"height"].twips();
    if (band.height < 0) node[u"height"].fail(u"0 以上にしてください。"_qs);
    for (const auto& [name, item] : node[u"items"].members()) {
        if (item.has(u"line"))
            band.lines.append(readLine(item, name));
        else if (item.has(u"box"))
            band.boxes.append(readBox(item, name));
        else
            band.texts.append(readText(item, name, fonts, ofPage));
    }
    return band;
}

// --- whole layout ---

ReportMargins readMargins(const Node& node) {
    node.allow({u"top"_qs, u"bottom"_qs, u"left"_qs, u"right"_qs});
    return {node[u"top"].twips(), node[u"bottom"].twips(), node[u"left"].twips(), node[u"right"].twips()};
}

void readPaper(const Node& root, ReportLayout& layout) {
    const QString paper = root[u"paper"].text();
    if (!paperSizes().contains(paper)) root[u"paper"].fail(u"用紙は A4 か B5 にしてください。"_qs);
    layout.paperWidth = paperSizes().value(paper).width;
    layout.paperHeight = paperSizes().value(paper).height;
    if (root[u"orientation"].choice({u"portrait"_qs, u"landscape"_qs}) == 1)
        std::swap(layout.paperWidth, layout.paperHeight);
}

void scale(const Node& node, ReportLayout& layout) {
    const int thousandths = node.twips();
    if (thousandths < 1 || thousandths > 1000) node.fail(u"1 から 1000 までの千分率にしてください。"_qs);
    scaleLayout(layout, thousandths / 1000.0);
}

ReportLayout build(const QString& name, const QJsonObject& object) {
    const Node root(object, name, {});
    root.allow({u"base"_qs, u"paper"_qs, u"orientation"_qs, u"margins"_qs, u"groupOnNewPage"_qs, u"fonts"_qs,
                u"bands"_qs, u"scale"_qs});
    ReportLayout layout;
    layout.name = name;
    readPaper(root, layout);
    layout.margins = readMargins(root[u"margins"]);
    layout.groupOnNewPage = root[u"groupOnNewPage"].flag();
    Fonts fonts;
    for (const auto& [fontName, font] : root[u"fonts"].members()) fonts.insert(fontName, readFont(font));
    const Node bands = root[u"bands"];
    QStringList known;
    for (size_t i = 0; i < bandNames.size(); ++i) {
        known.append(bandNames.at(i).toString());
        const auto kind = static_cast<ReportBandKind>(i);
        const bool ofPage = kind == ReportBandKind::PageHeader || kind == ReportBandKind::PageFooter;
        if (bands.has(bandNames.at(i))) layout.bands.at(i) = readBand(bands[bandNames.at(i)], fonts, ofPage);
    }
    bands.allow(known);
    if (root.has(u"scale")) scale(root[u"scale"], layout);
    return layout;
}

struct Loaded {
    QJsonObject object;
    ReportLayout layout;
};

// The base is built for itself first, so that its faults are told with its own name.
Loaded load(const QString& name, const ReportLayoutSource& source, QStringList callers) {
    QJsonObject object = parsed(name, source);
    if (object.contains(u"base"_qs)) {
        const Node base = Node(object, name, {})[u"base"];
        callers.append(name);
        if (callers.contains(base.text())) base.fail(u"元にするレイアウトが循環しています。"_qs);
        object = merged(load(base.text(), source, callers).object, object);
    }
    return {object, build(name, object)};
}

} // namespace

void ReportLayout::fail(ReportBandKind kind, const QString& item, const QString& reason) const {
    QString place = u"bands."_qs + bandNames.at(static_cast<size_t>(kind)).toString();
    if (!item.isEmpty()) place += u".items."_qs + item;
    Node({}, name, place).fail(reason);
}

QByteArray builtInLayout(const QString& name) {
    keepLayoutResource();
    QFile file(u":/layouts/%1.json"_qs.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

ReportLayout loadReportLayout(const QString& name, const ReportLayoutSource& source) {
    return load(name, source, {}).layout;
}
