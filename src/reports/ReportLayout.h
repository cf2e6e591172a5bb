#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>

// A report layout as data: where each text, line and box stands. All positions are whole twips (1440 to the inch),
// relative to the left margin and the top of their band; type sizes are points.

struct ReportRect {
    int x = 0, y = 0, width = 0, height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    ReportRect moved(int dx, int dy) const { return {x + dx, y + dy, width, height}; }
    bool operator==(const ReportRect&) const = default;
};

struct ReportFont {
    bool gothic = false; // otherwise mincho
    double size = 10;
    bool bold = false;
    int spacing = 0; // twips of air between two letters; for titles, which have no letters of two units

    ReportFont sized(double points) const { return {gothic, points, bold, spacing}; }
    bool operator==(const ReportFont&) const = default;
};

enum class ReportAlign { Left, Center, Right };

// Texts of more than `overBytes` bytes of the two-byte code page start with this size.
struct ReportSizeStep {
    int overBytes = 0;
    double size = 0;
};

// The rows that a sum counts: those of its page, of its group or of the report, or all down to where it stands.
enum class ReportSumOver { Page, Group, Report, Running };

// The record whose fields an item of a page's head or foot shows: that of its band, or the first or last on the page.
enum class ReportRecordOf { Band, First, Last };

struct ReportTextItem {
    QString name;
    ReportRect at;
    ReportFont font;
    ReportAlign align = ReportAlign::Left;
    bool wrap = false; // a text too long takes more lines before it shrinks
    QList<ReportSizeStep> sizes;
    // One of the four gives the value.
    QString text;
    QStringList fields; // several are joined, as in Pref+City
    QString parameter;
    QString sum; // a field that is added up
    ReportSumOver over = ReportSumOver::Page;
    ReportRecordOf record = ReportRecordOf::Band;
    QString format;                // number form, see ReportText::number
    QString date;                  // date form, see ReportText::date
    int digits = 0;                // one by one in so many boxes of equal width, from the right
    QString lead;                  // the sign before the first digit, left of all boxes when none is free
    QHash<QString, QString> words; // the words for a value, such as 2 and 請求書(控)
    bool hasWords = false;
    QString otherwise; // for a value that is not among the words
    QString caption;   // words that a value brings along; with nothing behind them nothing is printed
    QString showIf;    // the item stands only when this parameter is not empty
};

struct ReportLineItem {
    QString name;
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    int width = 0;
    bool dashed = false;
    QString showIf;
};

struct ReportBoxItem {
    QString name;
    ReportRect at;
    int width = 0;
    bool dashed = false;
    int shade = 0; // percent of black inside
    QString showIf;
};

// A page's head shows the first of its records, its foot the last one. GroupContinued closes the details of a page
// whose group goes on over the leaf, where there is room for it.
enum class ReportBandKind { PageHeader, GroupHeader, Detail, GroupFooter, PageFooter, ReportFooter, GroupContinued };

struct ReportBand {
    int height = 0;
    QList<ReportTextItem> texts;
    QList<ReportLineItem> lines;
    QList<ReportBoxItem> boxes;
};

struct ReportMargins {
    int top = 0, bottom = 0, left = 0, right = 0;
};

struct ReportLayout {
    QString name;
    int paperWidth = 0, paperHeight = 0;
    ReportMargins margins;
    bool groupOnNewPage = false;
    std::array<ReportBand, 7> bands;

    const ReportBand& band(ReportBandKind kind) const { return bands.at(static_cast<size_t>(kind)); }
    // Raises an error that names the file and the place inside of it; the item may be empty.
    [[noreturn]] void fail(ReportBandKind kind, const QString& item, const QString& reason) const;
};

// Gives the bytes of a layout file by its name without the extension; null bytes when there is none.
using ReportLayoutSource = std::function<QByteArray(const QString& name)>;

// The layouts that are built into the program.
QByteArray builtInLayout(const QString& name);

// Reads a layout, after its base when it names one: what a variant says stands over its base, null takes away; `scale`
// brings all of it to so many thousandths, for the same on a smaller paper. A fault
// raises an error with the file and the line and column, or the place inside of the file.
ReportLayout loadReportLayout(const QString& name, const ReportLayoutSource& source = builtInLayout);
